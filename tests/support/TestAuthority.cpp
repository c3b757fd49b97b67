#include "tests/support/TestAuthority.h"

#include <QSslCertificate>
#include <QSslKey>
#include <atomic>
#include <gtest/gtest.h>
#include <openssl/evp.h>
#include <openssl/pem.h>
#include <openssl/x509.h>
#include <openssl/x509v3.h>

namespace keelbright::testing {

namespace {

void expectDone(int result)
{
    EXPECT_GT(result, 0) << "OpenSSL refuses to make a certificate";
}

/// What `write` puts into the memory that it is given.
template <typename Write> QByteArray written(Write write)
{
    const std::unique_ptr<BIO, decltype(&BIO_free_all)> memory(BIO_new(BIO_s_mem()), &BIO_free_all);
    expectDone(write(memory.get()));
    const char* text = nullptr;
    const qsizetype size = BIO_get_mem_data(memory.get(), &text);
    return {text, size};
}

QByteArray pemOf(const X509* certificate)
{
    return written([certificate](BIO* memory) { return PEM_write_bio_X509(memory, certificate); });
}

QByteArray pemOf(const EVP_PKEY* key)
{
    return written([key](BIO* memory) {
        return PEM_write_bio_PrivateKey(memory, key, nullptr, nullptr, 0, nullptr, nullptr);
    });
}

long secondsOf(std::chrono::hours hours)
{
    return static_cast<long>(std::chrono::seconds(hours).count());
}

} // namespace

void TestAuthority::Free::operator()(EVP_PKEY* key) const
{
    EVP_PKEY_free(key);
}

void TestAuthority::Free::operator()(X509* certificate) const
{
    X509_free(certificate);
}

TestAuthority::TestAuthority()
    : m_key(makeKey())
    , m_certificate(sign({.name = "An authority of a test",
                          .extension = NID_basic_constraints,
                          .value = "critical,CA:TRUE",
                          .key = *m_key,
                          .authority = nullptr,
                          .authorityKey = *m_key},
                         {.from = std::chrono::hours(-48), .until = std::chrono::hours(48)}))
{}

TestAuthority::~TestAuthority() = default;

QByteArray TestAuthority::certificate() const
{
    return pemOf(m_certificate.get());
}

QSslConfiguration TestAuthority::serverFor(const QByteArray& host, const Validity& validity) const
{
    const Key key = makeKey();
    const Certificate certificate = sign({.name = "A server of a test",
                                          .extension = NID_subject_alt_name,
                                          .value = host,
                                          .key = *key,
                                          .authority = m_certificate.get(),
                                          .authorityKey = *m_key},
                                         validity);
    QSslConfiguration configuration = QSslConfiguration::defaultConfiguration();
    configuration.setLocalCertificate(QSslCertificate(pemOf(certificate.get())));
    configuration.setPrivateKey(QSslKey(pemOf(key.get()), QSsl::Ec));
    configuration.setPeerVerifyMode(QSslSocket::VerifyNone);
    return configuration;
}

TestAuthority::Key TestAuthority::makeKey()
{
    return Key(EVP_PKEY_Q_keygen(nullptr, nullptr, "EC", "P-256"));
}

TestAuthority::Certificate TestAuthority::sign(const Contents& contents, const Validity& validity)
{
    static std::atomic<long> serialNumber = 0;
    Certificate certificate(X509_new());
    X509* const made = certificate.get();
    expectDone(X509_set_version(made, X509_VERSION_3));
    expectDone(ASN1_INTEGER_set(X509_get_serialNumber(made), ++serialNumber));
    X509_gmtime_adj(X509_getm_notBefore(made), secondsOf(validity.from));
    X509_gmtime_adj(X509_getm_notAfter(made), secondsOf(validity.until));
    expectDone(X509_set_pubkey(made, &contents.key));
    const auto* const name = reinterpret_cast<const unsigned char*>(contents.name.constData());
    X509_NAME* const subject = X509_get_subject_name(made);
    expectDone(X509_NAME_add_entry_by_txt(subject, "CN", MBSTRING_UTF8, name, -1, -1, 0));
    const X509* const issuer = contents.authority ? contents.authority : made;
    expectDone(X509_set_issuer_name(made, X509_get_subject_name(issuer)));
    X509_EXTENSION* const extension =
        X509V3_EXT_conf_nid(nullptr, nullptr, contents.extension, contents.value.constData());
    expectDone(X509_add_ext(made, extension, -1));
    X509_EXTENSION_free(extension);
    expectDone(X509_sign(made, &contents.authorityKey, EVP_sha256()));
    return certificate;
}

} // namespace keelbright::testing
