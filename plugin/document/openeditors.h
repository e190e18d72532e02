#pragma once

class QWidget;

namespace VLT {

/// Takes over what has been typed and not yet confirmed in cells and spin boxes inside `within`.
void commitOpenEditors(const QWidget *within);

/// Whether the open editor of a cell inside `within` has another text than it opened on.
bool hasPendingEditor(const QWidget *within);

} // namespace VLT
