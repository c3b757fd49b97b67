#include "KeelbrightCore/check/ChecksumLine.h"
#include "tests/fuzz/Fuzzer.h"

int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    using namespace keelbright;
    using fuzzing::require;
    const auto line = ChecksumLine::fromText(fuzzing::bytesOf(data, size));
    if (!line)
        return 0;
    require(line->digest.size() == 32, "a checksum has its size");
    require(!line->path.isEmpty() && !line->path.contains('\0'), "a path is one");
    QByteArray text = line->text();
    require(text.endsWith('\n') && text.count('\n') == 1, "a line is one");
    text.chop(1);
    require(ChecksumLine::fromText(text) == line, "a line that is written is read as it was");
    return 0;
}
