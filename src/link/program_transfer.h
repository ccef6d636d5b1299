#pragma once

#include "link/hex_records.h"
#include "link/program_files.h"
#include "link/register_access.h"

#include <optional>
#include <string>

namespace tambrix {

/// Where a program transfer stands, for the window that shows it.
struct TransferProgress
{
    bool InProgramMode = false; ///< from the request for program mode to the end
    bool InUploadMode = false;  ///< the same for the way back
    bool ReadingIdent = false;  ///< the identity registers are being read
    bool WritingIdent = false;  ///< the identity registers are being written
    int recordsSent = 0;
    int records = 0;                     ///< of the whole image; 0 before it is sent
    std::string CurrentProgramAdd = " "; ///< load address of the current record, "1A00H"
};

/// Loads a controller program into the board, record by record, and gives it its identity.
///
/// On the wire: the program-mode request (B8181 := 86, B8176 := 0), attention, on boards with a
/// configuration file B8188 to B8190, then the mode command 3. A record is length, address high,
/// address low and its data, with no answer in between; the board answers it with the low byte of
/// the sum of all of them. Attention ends the mode; name, checksum and revision follow as
/// ordinary register writes.
class ProgramTransfer
{
public:
    ProgramTransfer(LinkFlags& flags, ByteExchange& exchange, RegisterAccess& registers,
                    Clock& clock, Operator& person);

    /// Asks the operator, loads the program of `files` and says how it ended. The whole image is
    /// read before the board is touched: a bad file never leaves it half loaded.
    void DumpProgram(const ProgramFiles& files, const PendingEvents& pendingEvents);

    /// Would read the board's program back into an image file. No bytes are known by which a board
    /// gives its program away, so it says that the file was not created and sends nothing.
    void UploadProgram();

    const TransferProgress& progress() const { return m_progress; }

    /// Whether the last `DumpProgram` has loaded the whole program and its identity.
    bool complete() const { return m_complete; }

private:
    enum class Outcome { Complete, NotComplete, Halted };

    Outcome transfer(const ProgramFiles& files);
    std::optional<ProgramIdentity> identityInBoard();
    bool confirmed(const ProgramIdentity& onDisk, const ProgramIdentity& inBoard);
    Outcome load(const ProgramFiles& files, const HexImage& image);
    bool requestProgramMode();
    bool writeConfiguration(const ProgramConfiguration& configuration);
    Outcome sendRecords(const HexImage& image);
    bool acknowledged(const HexRecord& record);
    void leaveProgramMode();
    bool writeIdentity(const ProgramFiles& files);
    bool writeByte(int address, int value);
    void pause(Duration span);
    void servePendingEvents();
    Outcome halted(const char* title, const std::string& text);
    void say(BoxIcon icon, const char* title, const std::string& text);

    LinkFlags& m_flags;
    ByteExchange& m_exchange;
    RegisterAccess& m_registers;
    Clock& m_clock;
    Operator& m_operator;
    PendingEvents m_pendingEvents;
    TransferProgress m_progress;
    bool m_complete = false;
};

} // namespace tambrix
