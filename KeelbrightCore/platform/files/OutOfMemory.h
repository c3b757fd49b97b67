#pragma once

#include "KeelbrightCore/platform/files/FileError.h"

#include <cerrno>
#include <expected>
#include <new>
#include <type_traits>

namespace keelbright {

/// What `work` gives, which is an `std::expected`; the error ENOMEM for the item at that path, or of that
/// name, where memory runs out for it.
template <typename Work>
[[nodiscard]] std::invoke_result_t<Work&> orOutOfMemory(FileError::Operation operation, QByteArrayView path,
                                                        Work work)
{
    try {
        return work();
    } catch (const std::bad_alloc&) {
        return outOfMemory(operation, path);
    }
}

/// The same for work whose error is an `errno` value.
template <typename Work> [[nodiscard]] std::invoke_result_t<Work&> orOutOfMemory(Work work)
{
    try {
        return work();
    } catch (const std::bad_alloc&) {
        return std::unexpected(ENOMEM);
    }
}

} // namespace keelbright
