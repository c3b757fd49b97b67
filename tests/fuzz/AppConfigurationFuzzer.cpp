#include "KeelbrightCore/records/AppConfiguration.h"
#include "tests/fuzz/RecordRoundTrip.h"

namespace {

/// What is put together from kept pieces is what the library writes in one go.
void requireSameText(const keelbright::AppConfiguration& configuration)
{
    const QJsonDocument whole(configuration.toJson());
    keelbright::fuzzing::require(configuration.toJsonText() == whole.toJson(QJsonDocument::Indented),
                                 "the text of a configuration is its JSON");
}

} // namespace

int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    using namespace keelbright;
    if (const auto configuration = fuzzing::readRecord<AppConfiguration>(fuzzing::bytesOf(data, size)))
        requireSameText(*configuration);
    return 0;
}
