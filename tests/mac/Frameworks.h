// What the program uses of macOS' frameworks, declared by their documentation, so that it can be compiled
// without them; for tools/mac-check alone. The check makes these headers of it:
//
// <SystemConfiguration/SystemConfiguration.h>

#pragma once

extern "C" {

using Boolean = unsigned char;
using CFTypeRef = const void*;
using CFStringRef = const struct __CFString*;

void CFRelease(CFTypeRef object);

// The name that the user gave the machine.
using SCDynamicStoreRef = const struct __SCDynamicStore*;
CFStringRef SCDynamicStoreCopyComputerName(SCDynamicStoreRef store, unsigned int* nameEncoding);
}
