#pragma once

class QWidget;

namespace VLT {

struct Conditions;

namespace Ui {
class VLTSettingWidget;
}

/// The values in `form`, the form of `page`, that are saved: those that no other entry
/// overrides.
Conditions conditionsOf(const Ui::VLTSettingWidget &form, const QWidget *page);

/// Shows `conditions` in `form`; fields of absent elements are not changed. The page then decides
/// which fields are enabled.
void showConditions(const Conditions &conditions, const Ui::VLTSettingWidget &form);

} // namespace VLT
