#pragma once

#include <QRect>
#include <QSize>

class QWidget;

namespace quillmark {

// What a window may take of a screen: all that panels leave, less the frame that the desktop puts
// round it. In pixels.
QSize RoomOn(const QRect& freeScreen, const QWidget& window);

// Makes a window that can't be as small as `room` do with it: what it holds then scrolls. Windows
// that can, and those that are no dialogs, stay as they are. To be called before the window is
// shown.
void FitInto(QWidget& window, QSize room);

// A place of that size near `wanted` that is on the screen, its upper left corner first.
QPoint Within(const QRect& freeScreen, QPoint wanted, QSize size);

}  // namespace quillmark
