#pragma once

#include "shell/program_state.h"

class QWidget;

namespace tambrix {

/// File > Upload (save) Data: group 0 set-up data, 1 shift data, 2 label data, after a question.
/// A confirmed upload stamps the data set with today's date.
void uploadData(ProgramState& state, QWidget& window, int group);

/// File > Download (restore) Data, likewise.
void downloadData(ProgramState& state, QWidget& window, int group);

/// Runs the bulk transfer with this request code: asks to go on line where the program is not,
/// asks for the labels where labels are moved, and shows the progress until it has ended.
void transferData(ProgramState& state, QWidget& window, int requestCode);

} // namespace tambrix
