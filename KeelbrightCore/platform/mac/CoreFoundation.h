#pragma once

#include <CoreFoundation/CoreFoundation.h>
#include <memory>
#include <type_traits>

namespace keelbright {

struct CoreFoundationRelease
{
    void operator()(CFTypeRef object) const { ::CFRelease(object); }
};

/// Owns an object of Core Foundation, such as `CoreFoundationOwner<CFURLRef>`; null for none. Internal to the
/// platform folder.
template <typename Reference>
using CoreFoundationOwner = std::unique_ptr<std::remove_pointer_t<Reference>, CoreFoundationRelease>;

} // namespace keelbright
