#pragma once

#include "document/pagegroup.h"

namespace VLT {

/// The pages of the signal activity: toggle rates and activity files.
class VLTRateWidget : public PageGroup
{
    Q_OBJECT

public:
    VLTRateWidget(VLTView *view, QWidget *parent);
};

} // namespace VLT
