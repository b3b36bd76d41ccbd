#pragma once

class QPaintDevice;

// One printed page. The same drawing serves the printer and a PDF file, so a
// printout draws on whatever paint device it is given.
class Printout {
public:
    virtual ~Printout() = default;

    virtual void render(QPaintDevice& device) = 0;
};
