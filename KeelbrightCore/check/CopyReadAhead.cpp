#include "KeelbrightCore/check/CopyReadAhead.h"

#include "KeelbrightCore/platform/files/OutOfMemory.h"
#include "KeelbrightCore/platform/system/TaskPools.h"

#include <utility>

namespace keelbright {

namespace {

/// How much memory is read ahead, in pieces: enough for a drive to go on while a piece is compared.
constexpr int buffers = 8;

} // namespace

CopyReadAhead::CopyReadAhead(ReadOnlyTree& tree, QList<CheckedItem> items)
    : m_tree(tree)
    , m_items(std::move(items))
{
    m_freeBuffers.reserve(buffers);
    for (int i = 0; i < buffers; ++i)
        m_freeBuffers.push_back(std::make_unique<PieceBuffer>());
    TaskPools::startApart(TaskPools::Priority::utility, [this] {
        readAll();
        m_ended.release();
    });
}

CopyReadAhead::~CopyReadAhead()
{
    {
        const std::lock_guard lock(m_mutex);
        m_stops = true;
    }
    m_changed.notify_all();
    m_ended.acquire();
}

CopyPiece CopyReadAhead::next()
{
    std::unique_lock lock(m_mutex);
    m_changed.wait(lock, [this] { return m_waiting > 0; });
    CopyPiece piece = std::exchange(m_pieces[m_first], {});
    m_first = (m_first + 1) % maximumWaiting;
    --m_waiting;
    lock.unlock();
    m_changed.notify_all();
    return piece;
}

void CopyReadAhead::giveBack(std::unique_ptr<PieceBuffer> buffer)
{
    {
        const std::lock_guard lock(m_mutex);
        m_freeBuffers.push_back(std::move(buffer));
    }
    m_changed.notify_all();
}

std::unique_ptr<PieceBuffer> CopyReadAhead::takeBuffer()
{
    std::unique_lock lock(m_mutex);
    m_changed.wait(lock, [this] { return m_stops || !m_freeBuffers.empty(); });
    if (m_stops)
        return nullptr;
    std::unique_ptr<PieceBuffer> buffer = std::move(m_freeBuffers.back());
    m_freeBuffers.pop_back();
    return buffer;
}

void CopyReadAhead::push(CopyPiece piece)
{
    {
        std::unique_lock lock(m_mutex);
        m_changed.wait(lock, [this] { return m_stops || m_waiting < maximumWaiting; });
        if (m_stops)
            return;
        m_pieces[(m_first + m_waiting) % maximumWaiting] = std::move(piece);
        ++m_waiting;
    }
    m_changed.notify_all();
}

void CopyReadAhead::readAll()
{
    for (const CheckedItem& item : m_items) {
        if (m_stops)
            return;
        readItem(item);
    }
}

void CopyReadAhead::readItem(const CheckedItem& item)
{
    const auto status = orOutOfMemory([&] { return m_tree.status(item.folder, item.name); });
    if (!status) {
        push({.kind = CopyPiece::Kind::begin, .code = status.error(), .status = {}, .buffer = {}});
        return;
    }
    if (status->type != EntryType::regularFile) {
        push({.kind = CopyPiece::Kind::begin, .status = *status, .buffer = {}});
        return;
    }
    auto file = orOutOfMemory([&] { return m_tree.openFile(item.folder, item.name); });
    if (!file) {
        push({.kind = CopyPiece::Kind::begin, .code = file.error(), .status = *status, .buffer = {}});
        return;
    }
    push({.kind = CopyPiece::Kind::begin, .status = file->status(), .buffer = {}});
    file->readFromDrive();
    const int code = readPieces(*file);
    push({.kind = CopyPiece::Kind::end,
          .code = code,
          .status = {},
          .buffer = {},
          .isFromDrive = file->isReadFromDrive()});
}

int CopyReadAhead::readPieces(ReadOnlyFile& file)
{
    const qint64 size = file.status().size;
    qint64 offset = 0;
    while (offset < size && !m_stops) {
        const qint64 data = file.hasHoles() ? file.nextData(offset) : offset;
        const qint64 start = data >= size ? size : data - data % PieceBuffer::size;
        if (start > offset) {
            push({.kind = CopyPiece::Kind::hole,
                  .status = {},
                  .offset = offset,
                  .size = start - offset,
                  .buffer = {}});
            offset = start;
            continue;
        }
        auto buffer = takeBuffer();
        if (!buffer)
            return 0;
        const auto got = file.read(offset, *buffer);
        if (!got || *got == 0) {
            giveBack(std::move(buffer));
            return got ? 0 : got.error();
        }
        push({.kind = CopyPiece::Kind::data,
              .status = {},
              .offset = offset,
              .size = *got,
              .buffer = std::move(buffer)});
        offset += *got;
        if (*got < PieceBuffer::size)
            return 0; // the end, wherever its size says that it is
    }
    return 0;
}

} // namespace keelbright
