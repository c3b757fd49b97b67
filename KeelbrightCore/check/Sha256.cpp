#include "KeelbrightCore/check/Sha256.h"

#include <algorithm>
#include <array>
#include <openssl/evp.h>

namespace keelbright {

struct Sha256::State
{
    struct Free
    {
        void operator()(EVP_MD* owned) const { EVP_MD_free(owned); }

        void operator()(EVP_MD_CTX* owned) const { EVP_MD_CTX_free(owned); }
    };

    // Looked up once, because that costs more than the checksum of a small file.
    std::unique_ptr<EVP_MD, Free> algorithm{EVP_MD_fetch(nullptr, "SHA256", nullptr)};
    std::unique_ptr<EVP_MD_CTX, Free> context{EVP_MD_CTX_new()};
    bool isGood = false;

    void begin()
    {
        isGood = algorithm && context && EVP_DigestInit_ex2(context.get(), algorithm.get(), nullptr) == 1;
    }
};

Sha256::Sha256()
    : m_state(std::make_unique<State>())
{
    m_state->begin();
}

Sha256::~Sha256() = default;

void Sha256::add(const char* data, qint64 size)
{
    m_state->isGood =
        m_state->isGood && EVP_DigestUpdate(m_state->context.get(), data, static_cast<size_t>(size)) == 1;
}

void Sha256::addZeros(qint64 count)
{
    static constexpr std::array<char, 65536> zeros = {};
    for (; count > 0; count -= static_cast<qint64>(zeros.size()))
        add(zeros.data(), std::min<qint64>(count, zeros.size()));
}

QByteArray Sha256::result()
{
    QByteArray digest(EVP_MAX_MD_SIZE, Qt::Uninitialized);
    unsigned int size = 0;
    if (!m_state->isGood || EVP_DigestFinal_ex(m_state->context.get(),
                                               reinterpret_cast<unsigned char*>(digest.data()), &size) != 1)
        size = 0;
    m_state->begin();
    digest.truncate(static_cast<qsizetype>(size));
    return digest;
}

} // namespace keelbright
