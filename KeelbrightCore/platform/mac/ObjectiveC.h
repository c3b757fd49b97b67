#pragma once

#include <objc/message.h>
#include <objc/runtime.h>

namespace keelbright {

/// Calls of the system's Objective-C classes from C++, for what it has no other interface. Internal to the
/// platform folder. All may be called from any thread, where the class that is asked allows that.
namespace ObjectiveC {

/// Sends a message; the types are those that the method is declared with.
template <typename Result, typename... Arguments>
Result send(id receiver, const char* selector, Arguments... arguments)
{
    using Method = Result (*)(id, SEL, Arguments...);
    return reinterpret_cast<Method>(&::objc_msgSend)(receiver, ::sel_registerName(selector), arguments...);
}

/// The class of that name, to send messages to.
[[nodiscard]] inline id classNamed(const char* name)
{
    return reinterpret_cast<id>(::objc_getClass(name));
}

/// What is made while it lives is freed at its end, unless somebody else keeps it.
class AutoreleasePool
{
public:
    AutoreleasePool()
        : m_pool(send<id>(send<id>(classNamed("NSAutoreleasePool"), "alloc"), "init"))
    {}

    ~AutoreleasePool() { send<void>(m_pool, "drain"); }

    AutoreleasePool(const AutoreleasePool&) = delete;
    AutoreleasePool& operator=(const AutoreleasePool&) = delete;

private:
    id m_pool;
};

/// A text of the system's own kind, valid as long as the pool around.
[[nodiscard]] inline id string(const char* utf8)
{
    return send<id>(classNamed("NSString"), "stringWithUTF8String:", utf8);
}

/// The place of a file; the path is taken byte for byte.
[[nodiscard]] inline id fileUrl(const char* path, bool isFolder)
{
    return send<id>(classNamed("NSURL"),
                    "fileURLWithFileSystemRepresentation:isDirectory:relativeToURL:", path,
                    static_cast<BOOL>(isFolder), id{});
}

} // namespace ObjectiveC
} // namespace keelbright
