#pragma once

namespace tambrix {

/// Tells screen readers number, limits and text of every NumericEntryField from now on. Qt's own
/// way for a spin box knows no value but its own, which these fields do not use.
void makeEntriesAccessible();

} // namespace tambrix
