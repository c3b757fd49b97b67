#include "KeelbrightCore/apps/HttpAnswer.h"
#include "tests/fuzz/Fuzzer.h"

#include <algorithm>

int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    using namespace keelbright;
    using fuzzing::require;
    constexpr qint64 maximumBody = 1'000;
    constexpr qsizetype part = 7;
    const QByteArray bytes = fuzzing::bytesOf(data, size);
    HttpAnswer atOnce(maximumBody);
    atOnce.take(bytes);
    HttpAnswer inParts(maximumBody);
    for (qsizetype place = 0; place < bytes.size(); place += part)
        inParts.take(QByteArrayView(bytes).sliced(place, std::min(part, bytes.size() - place)));
    require(inParts.state() == atOnce.state(), "it makes no difference in what parts an answer arrives");
    require(atOnce.body().size() <= maximumBody, "a body is never longer than its limit");
    atOnce.end();
    inParts.end();
    require(inParts.state() == atOnce.state(), "nor where it ends");
    require(atOnce.state() == HttpAnswer::State::whole || atOnce.state() == HttpAnswer::State::broken,
            "an answer that has ended is whole or broken");
    if (atOnce.state() == HttpAnswer::State::whole)
        require(inParts.body() == atOnce.body(), "a whole body is the same");
    return 0;
}
