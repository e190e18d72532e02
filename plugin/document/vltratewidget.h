#pragma once

#include "document/pagegroup.h"

namespace VLT {

/// Holds the pages of the signal activity: toggle rates beside activity files.
class VLTRateWidget : public PageGroup
{
    Q_OBJECT

public:
    VLTRateWidget(VLTView *view, QWidget *parent);
};

} // namespace VLT
