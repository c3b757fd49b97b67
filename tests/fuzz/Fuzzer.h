#pragma once

#include <QByteArray>
#include <cstdio>
#include <cstdlib>

/// Called by libFuzzer with each input; every fuzzer defines it. Always returns 0.
extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size);

namespace keelbright::fuzzing {

/// Prints the property and ends the program if it does not hold; libFuzzer then keeps the input.
inline void require(bool holds, const char* property)
{
    if (holds)
        return;
    std::fprintf(stderr, "Does not hold: %s\n", property);
    std::abort();
}

[[nodiscard]] inline QByteArray bytesOf(const uint8_t* data, size_t size)
{
    return {reinterpret_cast<const char*>(data), static_cast<qsizetype>(size)};
}

} // namespace keelbright::fuzzing
