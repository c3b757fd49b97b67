#pragma once

#include <QByteArray>
#include <QSslConfiguration>
#include <chrono>
#include <memory>

using EVP_PKEY = struct evp_pkey_st;
using X509 = struct x509_st;

namespace keelbright::testing {

/// A certificate authority of a test's own, trusted only by programs that are given it.
class TestAuthority
{
public:
    TestAuthority();
    ~TestAuthority();
    TestAuthority(const TestAuthority&) = delete;
    TestAuthority& operator=(const TestAuthority&) = delete;

    /// Its own certificate, in the PEM format.
    [[nodiscard]] QByteArray certificate() const;

    /// When a certificate is valid, counted from now.
    struct Validity
    {
        std::chrono::hours from = std::chrono::hours(-1);
        std::chrono::hours until = std::chrono::hours(24);
    };

    /// What a server needs for a certificate of this authority. `host` as OpenSSL writes it, such as
    /// "IP:127.0.0.1" or "DNS:localhost".
    [[nodiscard]] QSslConfiguration serverFor(const QByteArray& host, const Validity& validity) const;

    [[nodiscard]] QSslConfiguration serverFor(const QByteArray& host) const { return serverFor(host, {}); }

private:
    struct Free
    {
        void operator()(EVP_PKEY* key) const;
        void operator()(X509* certificate) const;
    };

    using Key = std::unique_ptr<EVP_PKEY, Free>;
    using Certificate = std::unique_ptr<X509, Free>;

    struct Contents
    {
        QByteArray name;
        int extension;         ///< by its number in OpenSSL
        QByteArray value;      ///< of the extension
        EVP_PKEY& key;         ///< of whom the certificate is for
        const X509* authority; ///< null for one that signs itself
        EVP_PKEY& authorityKey;
    };

    [[nodiscard]] static Key makeKey();
    [[nodiscard]] static Certificate sign(const Contents& contents, const Validity& validity);

    Key m_key;
    Certificate m_certificate;
};

} // namespace keelbright::testing
