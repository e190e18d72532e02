#pragma once

class QWidget;

namespace VLT {

/// Lets the wheel change `widget` only while it has the focus, so that scrolling a page changes no
/// value. For editors of Qt's own classes.
void ignoreWheelWithoutFocus(QWidget *widget);

} // namespace VLT
