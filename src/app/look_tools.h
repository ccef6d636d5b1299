#pragma once

class QString;

namespace tambrix {

class MainWindow;

/// Adds to the Tools menu what the user can change of the look, and the way to the simulated
/// controller: a program of its own, started with this program folder.
void addLookTools(MainWindow& window, const QString& programFolder);

} // namespace tambrix
