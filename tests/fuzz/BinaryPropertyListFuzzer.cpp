#include "KeelbrightCore/platform/formats/BinaryPropertyList.h"
#include "KeelbrightCore/platform/formats/PropertyList.h"
#include "tests/fuzz/Fuzzer.h"
#include "tests/fuzz/WrittenPropertyList.h"

int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    using namespace keelbright;
    using fuzzing::require;
    const auto value = BinaryPropertyList::read(fuzzing::bytesOf(data, size));
    if (!value)
        return 0;
    const qint64 values = fuzzing::valueCount(*value);
    require(values <= PropertyList::maximumValues, "no more values than allowed");
    require(fuzzing::depth(*value) <= PropertyList::maximumDepth, "no deeper than allowed");
    // A small list can refer to its parts so often that writing them all takes too long.
    constexpr qint64 maximumValues = 10'000;
    if (values > maximumValues)
        return 0;
    const QByteArray written = fuzzing::writtenAsBinary(*value);
    const auto again = BinaryPropertyList::read(written);
    require(again && fuzzing::writtenAsBinary(*again) == written,
            "a value that is written is read as it was");
    return 0;
}
