#include "KeelbrightCore/platform/formats/PropertyList.h"
#include "KeelbrightCore/platform/formats/XmlPropertyList.h"
#include "tests/fuzz/Fuzzer.h"
#include "tests/fuzz/WrittenPropertyList.h"

int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    using namespace keelbright;
    using fuzzing::require;
    const auto value = XmlPropertyList::read(fuzzing::bytesOf(data, size));
    if (!value)
        return 0;
    require(fuzzing::valueCount(*value) <= PropertyList::maximumValues, "no more values than allowed");
    require(fuzzing::depth(*value) <= PropertyList::maximumDepth, "no deeper than allowed");
    const QByteArray written = fuzzing::writtenAsXml(*value);
    const auto again = XmlPropertyList::read(written);
    require(again && fuzzing::writtenAsXml(*again) == written, "a value that is written is read as it was");
    return 0;
}
