#!/usr/bin/env python3
"""Writes the seed inputs of fuzz_linkreceive into corpus/linkreceive/.

The target reads its input with libFuzzer's FuzzedDataProvider: small
integers are taken from the end of the input, one byte each, and strings
from the front, each ended by a backslash and one more byte. A seed is
therefore built as the strings in order, then the integers reversed.
Keep the order of the calls here the same as in LinkReceiveFuzz.cpp."""
import os

CATALOGUE = ["0CM", "0RA", "0RD", "0WD", "0WE", "0WF", "0RP", "0WP",
             "0WA", "0MP", "0AR", "0RI", "0RO", "0WO", "0RV", "0%C"]
PULL = "pull"


class Seed:
    def __init__(self, missing_list=False):
        self.front = b""
        self.back = []
        self.back.append(1 if missing_list else 0)
        self.count_at = len(self.back)
        self.back.append(0)

    def string(self, data):
        self.front += data.replace(b"\\", b"\\\\") + b"\\\x00"

    def group(self, steps):
        self.back.append(len(steps))
        for step in steps:
            if step == PULL:
                self.back.append(0)
            else:
                self.back.append(1)
                self.string(step)

    def transaction(self, command, answer, resync=(), early=b"", timeout=2):
        self.back.append(CATALOGUE.index(command))
        self.back.append(timeout)
        self.string(early)
        self.group(answer)
        self.group(resync)
        self.back[self.count_at] += 1

    def bytes(self):
        # the count is taken as 1 + byte % 4
        self.back[self.count_at] -= 1
        return self.front + bytes(reversed(self.back))


def seeds():
    s = Seed()
    s.transaction("0RA", [b"0RA1\r\n"])
    yield "status-at-rest", s
    s = Seed()
    s.transaction("0RA", [b"0RA", b"1\r", b"\n"])
    yield "status-in-three-reads", s
    s = Seed()
    s.transaction("0RA", [b"0%%103\r\n"])
    yield "error-reply", s
    s = Seed(missing_list=True)
    s.transaction("0AR", [b"0%%901\r\n"])
    yield "error-reply-without-list", s
    s = Seed()
    s.transaction("0CM", [b"0CM66\r\n"], [b"0CM6\r\n"])
    yield "length-error-then-check", s
    s = Seed()
    s.transaction("0CM", [b"0CM66\r\n"], [b"0%%101\r\n"])
    yield "length-error-then-error-reply", s
    s = Seed()
    s.transaction("0RI", [b"0RO00\r\n"], [])
    yield "wrong-echo-silent-check", s
    s = Seed()
    s.transaction("0CM", [b"0CM6\r\n"])
    s.transaction("0RD", [b"0RD1" + b"0" * 32 + b"\r\n"], early=b"0%%301\r\n")
    s.transaction("0RP", [b"0RP012328100000000C01\r\n"])
    s.transaction("0RV", [b"0RVK01100\r\n"])
    yield "read-sequence", s
    s = Seed()
    s.transaction("0RO", [b"0RO", PULL])
    s.transaction("0RO", [b"0ROA5\r\n"])
    yield "pulled-cable", s
    s = Seed()
    s.transaction("0%C", [b"0%CK0110000000\r\n"])
    s.transaction("0WP", [b"0WP01\r", b"\n0WP01\r\n"])
    yield "old-version-and-two-lines", s


def main():
    folder = os.path.join(os.path.dirname(os.path.abspath(__file__)), "corpus", "linkreceive")
    os.makedirs(folder, exist_ok=True)
    for name, seed in seeds():
        with open(os.path.join(folder, name), "wb") as f:
            f.write(seed.bytes())


if __name__ == "__main__":
    main()
