#pragma once

#include "document/pagegroup.h"

namespace VLT {

/// The pages of the activity settings: clock enables, ports, block SRAMs, flip-flops.
class VLTEnableSetWidget : public PageGroup
{
    Q_OBJECT

public:
    VLTEnableSetWidget(VLTView *view, QWidget *parent);
};

} // namespace VLT
