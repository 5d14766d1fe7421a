#pragma once

#include <QStringList>
#include <string>

namespace wavforge::qt {

// The dialog's filter choices from the Windows list of NUL-ended description and pattern
// parts: "Wave files (*.wav)" and "*.wav" become "Wave files (*.wav) (*.wav)", whose last
// parentheses the dialog reads as patterns and hides. Patterns separated by ";" are split.
QStringList NameFiltersFromFilterList(const std::string& filter);

// The answer in the form the Windows dialog fills its buffer with: one file as its full path;
// several as their common folder and then each name relative to it, every part ended by a
// NUL and the whole by a second NUL.
std::string DialogAnswer(const QStringList& files);

}  // namespace wavforge::qt
