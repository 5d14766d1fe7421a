#pragma once

#include <QCursor>
#include <QIcon>
#include <QPixmap>
#include <string>

namespace wavforge::qt {

// The program's own pictures, compiled into it, by the names the forms use.
QPixmap Picture(const std::string& name);
QIcon WindowIcon();
// The hand shown over links.
QCursor LinkCursor();

}  // namespace wavforge::qt
