#include "KeelbrightCore/records/ConfigurationText.h"
#include "tests/fuzz/RecordRoundTrip.h"

namespace {

/// The text that is composed of cached pieces must equal the one that the library writes at once.
void requireSameText(const keelbright::AppConfiguration& configuration)
{
    const QByteArray expected = QJsonDocument(configuration.toJson()).toJson(QJsonDocument::Indented);
    keelbright::ConfigurationText text;
    keelbright::fuzzing::require(text.of(configuration) == expected,
                                 "the text of a configuration is its JSON");
    keelbright::fuzzing::require(text.of(configuration) == expected, "and so is the next one");
}

} // namespace

int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    using namespace keelbright;
    if (const auto configuration = fuzzing::readRecord<AppConfiguration>(fuzzing::bytesOf(data, size)))
        requireSameText(*configuration);
    return 0;
}
