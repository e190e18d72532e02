#pragma once

class QWidget;

namespace VLT {

/// Dims the labels inside `widget` while their buddy fields are disabled. The labels' own enabled
/// state does not change.
void dimLabelsWithFields(QWidget *widget);

} // namespace VLT
