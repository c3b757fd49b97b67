#include "KeelbrightCore/apps/UsageRecords.h"
#include "tests/fuzz/Fuzzer.h"

namespace keelbright {
namespace {

using fuzzing::require;

void requireUses(const UsageRecords::Uses& uses)
{
    for (const AppUse& use : uses) {
        require(use.count > 0, "what is recorded has been used");
        require(!use.last || (use.last->isValid() && use.last->timeSpec() == Qt::UTC),
                "a date is one, and in UTC");
    }
}

} // namespace
} // namespace keelbright

/// The input is the whole file of either kind.
int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    using namespace keelbright;
    const QByteArray xml = fuzzing::bytesOf(data, size);
    const UsageReading::Recent recent = UsageReading::recentFiles(xml);
    requireUses(recent.byProgram);
    requireUses(recent.byName);
    requireUses(UsageReading::gnomeState(xml));
    return 0;
}
