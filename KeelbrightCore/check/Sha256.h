#pragma once

#include <QByteArray>
#include <memory>

namespace keelbright {

/// The SHA-256 checksums of one file after the other. One thread at a time.
class Sha256
{
public:
    Sha256();
    ~Sha256();
    Sha256(const Sha256&) = delete;
    Sha256& operator=(const Sha256&) = delete;

    void add(const char* data, qint64 size);
    /// The zeros of a hole.
    void addZeros(qint64 count);
    /// The 32 bytes for everything since the last call, and begins with the next file. Empty where the
    /// library of the system does not give any.
    [[nodiscard]] QByteArray result();

private:
    struct State;
    std::unique_ptr<State> m_state;
};

} // namespace keelbright
