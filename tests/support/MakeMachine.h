#pragma once

#include "KeelbrightCore/platform/files/FileURL.h"

#include <cstdio>
#include <filesystem>
#include <optional>
#include <string>

namespace keelbright::testing {

/// The folder that a program which makes a machine was given, as an absolute path. Where that is not exactly
/// one, new or empty, it says so.
[[nodiscard]] inline std::optional<FileURL> folderToFill(int argc, char** argv)
{
    std::error_code failure;
    if (argc != 2 ||
        (std::filesystem::exists(argv[1], failure) && !std::filesystem::is_empty(argv[1], failure))) {
        std::fprintf(stderr, "usage: %s FOLDER (a new or empty one)\n",
                     argc > 0 ? std::filesystem::path(argv[0]).filename().c_str() : "");
        return std::nullopt;
    }
    return FileURL::fromNativePath(QByteArray::fromStdString(std::filesystem::absolute(argv[1]).string()));
}

} // namespace keelbright::testing
