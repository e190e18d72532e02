#pragma once

class QWidget;

namespace VLT {

/// Paints the labels inside `widget` dim while the fields that they are buddies of are disabled.
/// The labels themselves stay as enabled as they are.
void dimLabelsWithFields(QWidget *widget);

} // namespace VLT
