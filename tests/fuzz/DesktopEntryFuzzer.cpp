#include "KeelbrightCore/platform/formats/DesktopEntry.h"
#include "tests/fuzz/Fuzzer.h"

/// The input is the whole file.
int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    using namespace keelbright;
    using fuzzing::require;
    const QStringList languages{QStringLiteral("de_DE"), QStringLiteral("de")};
    const auto entry = DesktopEntry::fromData(fuzzing::bytesOf(data, size), languages);
    if (!entry)
        return 0;
    const QString program = entry->program();
    require(program.isEmpty() || entry->arguments().contains(program), "the program is one of the arguments");
    if (entry->onlyShowIn && !entry->onlyShowIn->isEmpty())
        require(entry->isShownIn({entry->onlyShowIn->first()}), "the desktop that it is for shows it");
    require(entry->isShownIn({}) == !entry->onlyShowIn, "a session without a name shows what is for all");
    return 0;
}
