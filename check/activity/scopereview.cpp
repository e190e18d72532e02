#include "check/activity/scopereview.h"

#include "check/activity/coverage.h"
#include "check/configurationinput.h"
#include "check/names/designnames.h"
#include "config/filenames.h"

#include "nlsdata/netlist.h"

#include <QFileInfo>

namespace Check {

NameReview reviewScopes(const ConfigurationInput &input, const DesignInput &design)
{
    NameReview review;
    const DesignTree tree(*design.netlist, design.names->nets());
    CoverageOptions options;
    options.scopes = &design.scopes;
    const Coverage coverage =
        computeCoverage(input.configuration, input.path, tree, *design.names, options);
    for (size_t i = 0; i < coverage.files().size(); ++i) {
        const CoveringFile &covering = coverage.files()[i];
        const std::optional<ScopeMisfit> misfit = scopeMisfit(covering, tree, *design.names);
        if (!misfit || misfit->proposal.isEmpty())
            continue;
        const QString file = QFileInfo(covering.file->path).fileName();
        ReviewedRecord record;
        record.section = VLT::NODE_FILE;
        record.ordinal = int(i) + 1;
        record.name = input.configuration.files.records.at(int(i)).entity;
        record.state = NameState::Moved;
        record.proposal = misfit->proposal;
        record.certainty = Certainty::Sure;
        record.reason = QStringLiteral("%1 covers of it: %2").arg(file, misfit->headline);
        ++review.counts.moved;
        review.records.append(record);
    }
    return review;
}

} // namespace Check
