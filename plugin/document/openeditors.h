#pragma once

class QWidget;

namespace VLT {

/// Commits what has been typed but not confirmed in cells and spin boxes inside `within`.
void commitOpenEditors(const QWidget *within);

/// Whether the text in the open editor of a cell inside `within` has been changed.
bool hasPendingEditor(const QWidget *within);

} // namespace VLT
