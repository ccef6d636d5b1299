#pragma once

#include "data/confirmed_read.h"

#include <optional>
#include <string>
#include <vector>

namespace tambrix {

/// What is known of one value that was to be written.
enum class WriteState {
    NotWritten, ///< the controller holds what it held
    Written,    ///< every byte was confirmed, but the value was not read back yet
    Verified,   ///< read back as wanted
    Different,  ///< read back as something else
    Unknown     ///< broke off in the middle of this value
};

/// One value for the controller, and what became of it.
struct RestoreRow
{
    std::string address;
    std::int32_t value = 0;
    WriteState state = WriteState::NotWritten;
    std::int32_t found = 0; ///< what was read back, where that is Different
};

/// Writes chosen values into the controller, in the order and with the bytes of a bulk download,
/// then reads each back; a register a step. It may be left at any step: the rows say at any time
/// what is known. Another Restore with the rows of this one takes up what is left.
class Restore
{
public:
    /// `rows` in ascending order of the data set. Verified rows are left alone, Written ones are
    /// only read back.
    Restore(RSComm& link, std::vector<RestoreRow> rows);

    Restore(const Restore&) = delete;
    Restore& operator=(const Restore&) = delete;

    void step();
    bool ended() const;

    /// Registers written and read back so far, and how many there are of both.
    int progress() const;
    int total() const;

    /// All rows with what is known by now.
    std::vector<RestoreRow> rows() const;

private:
    void beginReading();
    void markReadBack(std::vector<RestoreRow>& rows) const;

    RSComm& m_link;
    std::vector<RestoreRow> m_rows;
    std::vector<std::size_t> m_toWrite; ///< indexes of rows
    std::vector<std::size_t> m_toRead;
    SetupDataRecord m_wanted; ///< the values of m_toWrite
    BulkTransfer m_writing;
    std::optional<ConfirmedRead> m_reading;
};

/// How many rows are in `state`.
int countOf(const std::vector<RestoreRow>& rows, WriteState state);

} // namespace tambrix
