// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/updates/OwnCertificate.h"

#include <QSslConfiguration>
#include <memory>
#include <openssl/ec.h>
#include <openssl/evp.h>
#include <openssl/pem.h>
#include <openssl/x509v3.h>
#include <stdexcept>

namespace zumeta::test {

namespace {

void require(bool condition)
{
    if (!condition)
        throw std::runtime_error("OpenSSL cannot make a certificate");
}

QByteArray textOf(BIO* bio)
{
    char* data = nullptr;
    const long length = BIO_get_mem_data(bio, &data);
    return {data, qsizetype(length)};
}

void sayWhatItIsFor(X509* certificate)
{
    const std::shared_ptr<X509_EXTENSION> names(
        X509V3_EXT_conf_nid(nullptr, nullptr, NID_subject_alt_name, "IP:127.0.0.1"), X509_EXTENSION_free);
    require(names && X509_add_ext(certificate, names.get(), -1) == 1);
}

OwnCertificate make()
{
    const std::shared_ptr<EVP_PKEY> key(EVP_EC_gen("P-256"), EVP_PKEY_free);
    const std::shared_ptr<X509> certificate(X509_new(), X509_free);
    require(key && certificate);
    constexpr long kDay = 24 * 60 * 60;
    require(X509_set_version(certificate.get(), X509_VERSION_3) == 1);
    ASN1_INTEGER_set(X509_get_serialNumber(certificate.get()), 1);
    X509_gmtime_adj(X509_getm_notBefore(certificate.get()), -kDay);
    X509_gmtime_adj(X509_getm_notAfter(certificate.get()), kDay);
    X509_NAME* const name = X509_get_subject_name(certificate.get());
    const auto* const text = reinterpret_cast<const unsigned char*>("Zumeta's tests");
    require(X509_NAME_add_entry_by_txt(name, "CN", MBSTRING_ASC, text, -1, -1, 0) == 1);
    require(X509_set_issuer_name(certificate.get(), name) == 1);
    require(X509_set_pubkey(certificate.get(), key.get()) == 1);
    sayWhatItIsFor(certificate.get());
    require(X509_sign(certificate.get(), key.get(), EVP_sha256()) > 0);
    const std::shared_ptr<BIO> certificateText(BIO_new(BIO_s_mem()), BIO_free);
    const std::shared_ptr<BIO> keyText(BIO_new(BIO_s_mem()), BIO_free);
    require(PEM_write_bio_X509(certificateText.get(), certificate.get()) == 1);
    require(PEM_write_bio_PrivateKey(keyText.get(), key.get(), nullptr, nullptr, 0, nullptr, nullptr) == 1);
    return {QSslCertificate(textOf(certificateText.get())), QSslKey(textOf(keyText.get()), QSsl::Ec)};
}

void trust(const QList<QSslCertificate>& authorities)
{
    QSslConfiguration configuration = QSslConfiguration::defaultConfiguration();
    configuration.setCaCertificates(authorities);
    QSslConfiguration::setDefaultConfiguration(configuration);
}

}

const OwnCertificate& ownCertificate()
{
    static const OwnCertificate made = make();
    return made;
}

TrustInOwnCertificate::TrustInOwnCertificate()
{
    trust(QSslConfiguration::systemCaCertificates() << ownCertificate().certificate);
}

TrustInOwnCertificate::~TrustInOwnCertificate()
{
    trust(QSslConfiguration::systemCaCertificates());
}

}
