#include "KeelbrightCore/check/CheckReport.h"

namespace keelbright {

void CheckReport::add(const CheckFinding& finding)
{
    add(finding.verdict);
    findings.append(finding);
}

} // namespace keelbright
