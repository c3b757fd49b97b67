#include "KeelbrightCore/platform/files/FileManager.h"

#include "KeelbrightCore/platform/files/SystemFileManager.h"

#include <atomic>

namespace keelbright {

namespace {

std::atomic<FileManager*>& replacementSlot()
{
    static std::atomic<FileManager*> slot = nullptr;
    return slot;
}

} // namespace

FileManager& FileManager::defaultManager()
{
    static SystemFileManager system;
    FileManager* replacement = replacementSlot();
    return replacement ? *replacement : system;
}

FileManagerGuard::FileManagerGuard(FileManager& replacement)
    : m_previous(replacementSlot().exchange(&replacement))
{}

FileManagerGuard::~FileManagerGuard()
{
    replacementSlot() = m_previous;
}

} // namespace keelbright
