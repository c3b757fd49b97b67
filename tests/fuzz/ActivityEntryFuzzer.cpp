#include "KeelbrightCore/platform/text/UtcZone.h"
#include "KeelbrightCore/records/ActivityEntry.h"
#include "tests/fuzz/RecordRoundTrip.h"

namespace keelbright {
namespace {

/// Makes the texts that the screen of the log shows for an entry.
void requireShownTexts(const ActivityEntry& entry)
{
    static const QDateTime now(QDate(2026, 3, 2), QTime(9, 5, 7), utcZone);
    fuzzing::require(!entry.relativeTime(now).isEmpty(), "every line has a time");
    fuzzing::require(entry.formattedBytes().isEmpty() == (entry.bytesAffected <= 0),
                     "a line has a size where there is one");
}

} // namespace
} // namespace keelbright

int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    using namespace keelbright;
    const auto objects = decodeJsonArray(fuzzing::bytesOf(data, size));
    const Decoded<QList<ActivityEntry>> entries =
        objects ? recordsFromJson<ActivityEntry>(*objects) : std::unexpected(objects.error());
    if (!entries) {
        fuzzing::requireSentence(entries.error());
        return 0;
    }
    for (const ActivityEntry& entry : *entries) {
        fuzzing::requireRoundTrip(entry);
        requireShownTexts(entry);
    }
    return 0;
}
