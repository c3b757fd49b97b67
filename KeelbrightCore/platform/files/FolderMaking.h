#pragma once

#include "KeelbrightCore/platform/files/FileDescriptor.h"
#include "KeelbrightCore/platform/files/FileError.h"
#include "KeelbrightCore/platform/files/FolderChain.h"

#include <expected>

namespace keelbright {

/// Going into folders that may have to be made. Internal to the platform folder; no link is ever
/// followed.

/// The part of `path` up to its next slash; `path` becomes what follows.
[[nodiscard]] QByteArrayView takeComponent(QByteArrayView& path);

/// Goes into a folder of the chain's innermost one, made where it is missing; whether it was made.
[[nodiscard]] std::expected<bool, FileError> enterOrMake(FolderChain& chain, const QByteArray& name);

/// Opens the folder at `path` below an open one, and makes what is missing on the way.
[[nodiscard]] std::expected<FileDescriptor, FileError> openOrMake(int folder, QByteArrayView path);

} // namespace keelbright
