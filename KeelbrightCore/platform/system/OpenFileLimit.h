#pragma once

namespace keelbright::OpenFileLimit {

/// Lets the program keep more files open than the system's default of 256 or 1,024, for the many copies
/// that a backup prepares at a time: up to 4,096, where the system allows it. Never lowers the limit. To
/// be called once, as the program starts.
///
/// Helper programs inherit the limit. It stays low enough for those that close or look at every
/// descriptor that they could have.
void raise();

} // namespace keelbright::OpenFileLimit
