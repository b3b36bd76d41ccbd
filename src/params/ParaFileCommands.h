#pragma once

class FileChooser;
class Prompter;
struct ParaData;
struct ParaScreen;

// The parameter file buttons of the page: save (cmdSaveParaFile) and open
// (cmdReadParaFile). The save dialog proposes the parameter file last
// opened or saved in this run (so it starts in that folder), or else
// "KTRpara.pmt" (message 4302).
class ParaFileCommands {
public:
    ParaFileCommands(Prompter& prompter, FileChooser& files);

    // Checks the page (messages 7 and 8 for an empty box, 9 for an invalid
    // value), asks for the file name and saves (13 on failure, 14 when done).
    // 0 when saved; 1 when not (refused, cancelled or failed).
    int cmdSaveParaFile_Click(ParaData& data, const ParaScreen& screen);

    // Asks for a file and loads it into the image; unless the read failed
    // part-way (message 681), the image is taken into the set and shown,
    // also after a refused header, whose own messages have been shown.
    void cmdReadParaFile_Click(ParaData& data, ParaScreen& screen);

private:
    Prompter& m_prompter;
    FileChooser& m_files;
};
