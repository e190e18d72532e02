#pragma once

class QWidget;

namespace VLT {

struct Conditions;

namespace Ui {
class VLTSettingWidget;
}

/// What saving writes of the values in `form`, the form of `page`: without what another entry
/// overrules.
Conditions conditionsOf(const Ui::VLTSettingWidget &form, const QWidget *page);

/// Shows in `form` what was in the file; what was absent stays as it is. Which fields are enabled
/// is for the page to decide afterwards.
void showConditions(const Conditions &conditions, const Ui::VLTSettingWidget &form);

} // namespace VLT
