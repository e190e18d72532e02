#pragma once

class QWidget;

namespace VLT {

/// Lets the wheel change `widget` only while it has the focus, so that scrolling a page changes no
/// value. For editors that are not of a class of ours.
void ignoreWheelWithoutFocus(QWidget *widget);

} // namespace VLT
