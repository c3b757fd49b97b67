#include "KeelbrightCore/platform/files/ResolvedPath.h"

#include <cstdlib>
#include <memory>

namespace keelbright {

FileURL resolvedPath(const FileURL& url)
{
    struct Deleter
    {
        void operator()(char* text) const { std::free(text); }
    };

    const std::unique_ptr<char, Deleter> resolved(::realpath(url.nativePath().constData(), nullptr));
    return resolved ? FileURL::fromNativePath(QByteArray(resolved.get())) : url;
}

} // namespace keelbright
