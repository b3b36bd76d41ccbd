#pragma once

class DeviceList;
struct ParaData;
struct ParaScreen;
struct SequenceContext;

// "Read" on the parameter page (cmdParaRead): fetches the parameter blocks
// from the controller and shows them.
class ParaReadCommand {
public:
    ParaReadCommand(SequenceContext& ctx, ParaData& data, DeviceList& devices);

    // Commands and menus off and the busy flag set around GetParametaValue;
    // the port is closed afterwards unless it is kept occupied.
    void cmdParaRead_Click(ParaScreen& screen);

    // 1. Edited parameters with an empty box: message 355 offers to save
    //    first (Yes: the save dialog, Cancel: no read). When Yes does not
    //    end in a saved file, message 5000 says so and nothing is read.
    // 2. The device list is read again; when it cannot be, message 356.
    // 3. ReadParaFromCt; on failure the page stays as it was.
    // 4. The image is taken into the set and shown (a value too large for
    //    its field, such as a motor number above 32767, is reported with
    //    message 4303 and the page stays as it was), then the operating
    //    current of an "SP" actuator is read. A current the display cannot
    //    compute is reported (message 4300); the parameters stay shown.
    // 0 when the parameters and the current were read and shown; 1 when
    // the read stopped or the current could not be read or shown.
    int GetParametaValue(ParaScreen& screen);

    // Whether the parameters were taken in and shown, even when the current
    // that follows them could not be: what was read is not lost then.
    bool parametersShown() const { return m_shown; }

private:
    SequenceContext& m_ctx;
    ParaData& m_data;
    DeviceList& m_devices;
    bool m_shown = false;
};
