// What the program uses of macOS' frameworks, declared by their documentation, so that it can be compiled
// without them; for tools/mac-check alone. The check makes these headers of it:
//
// <CoreFoundation/CoreFoundation.h>
// <IOKit/pwr_mgt/IOPMLib.h>
// <SystemConfiguration/SystemConfiguration.h>

#pragma once

extern "C" {

using Boolean = unsigned char;
using CFTypeRef = const void*;
using CFIndex = long;
using CFStringRef = const struct __CFString*;
using CFURLRef = const struct __CFURL*;
using CFNumberRef = const struct __CFNumber*;
using CFAllocatorRef = const struct __CFAllocator*;
using CFErrorRef = struct __CFError*;
using CFNumberType = CFIndex;

constexpr CFNumberType kCFNumberSInt64Type = 4;

void CFRelease(CFTypeRef object);
Boolean CFNumberGetValue(CFNumberRef number, CFNumberType type, void* value);
CFURLRef CFURLCreateFromFileSystemRepresentation(CFAllocatorRef allocator, const unsigned char* bytes,
                                                 CFIndex length, Boolean isFolder);

// How much room a volume has for a file that matters to the user.
extern const CFStringRef kCFURLVolumeAvailableCapacityForImportantUsageKey;
Boolean CFURLCopyResourcePropertyForKey(CFURLRef url, CFStringRef key, void* value, CFErrorRef* error);

// The name that the user gave the machine.
using SCDynamicStoreRef = const struct __SCDynamicStore*;
CFStringRef SCDynamicStoreCopyComputerName(SCDynamicStoreRef store, unsigned int* nameEncoding);

// The promise not to go to sleep.
using IOReturn = int;
using IOPMAssertionID = unsigned int;
using IOPMAssertionLevel = unsigned int;
constexpr IOReturn kIOReturnSuccess = 0;
constexpr IOPMAssertionLevel kIOPMAssertionLevelOn = 255;
IOReturn IOPMAssertionCreateWithName(CFStringRef kind, IOPMAssertionLevel level, CFStringRef name,
                                     IOPMAssertionID* assertion);
IOReturn IOPMAssertionRelease(IOPMAssertionID assertion);
}
