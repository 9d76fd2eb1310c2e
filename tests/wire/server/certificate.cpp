#include "wire/server/certificate.h"

#include <openssl/evp.h>
#include <openssl/pem.h>
#include <openssl/ssl.h>
#include <openssl/x509v3.h>

namespace desk::wire {

namespace {

void add(X509* certificate, int extension, const char* value) {
    X509_EXTENSION* added = X509V3_EXT_conf_nid(nullptr, nullptr, extension, value);
    X509_add_ext(certificate, added, -1);
    X509_EXTENSION_free(added);
}

X509* signedBy(EVP_PKEY* key) {
    X509* certificate = X509_new();
    X509_set_version(certificate, 2);
    ASN1_INTEGER_set(X509_get_serialNumber(certificate), 1);
    X509_gmtime_adj(X509_getm_notBefore(certificate), -24L * 3600);
    X509_gmtime_adj(X509_getm_notAfter(certificate), 365L * 24 * 3600);
    X509_set_pubkey(certificate, key);
    add(certificate, NID_subject_alt_name, "IP:127.0.0.1");
    add(certificate, NID_basic_constraints, "critical,CA:TRUE");
    X509_sign(certificate, key, EVP_sha256());
    return certificate;
}

std::string pemOf(X509* certificate) {
    BIO* bio = BIO_new(BIO_s_mem());
    PEM_write_bio_X509(bio, certificate);
    char* text = nullptr;
    const auto size = BIO_get_mem_data(bio, &text);
    std::string pem(text, static_cast<std::size_t>(size));
    BIO_free(bio);
    return pem;
}

}  // namespace

Certificate::Certificate() : context_(SSL_CTX_new(TLS_server_method())) {
    // Later versions send more after the handshake, which this protocol has no place for.
    SSL_CTX_set_max_proto_version(context_, TLS1_2_VERSION);
    EVP_PKEY* key = EVP_EC_gen("P-256");
    X509* certificate = signedBy(key);
    pem_ = pemOf(certificate);
    SSL_CTX_use_certificate(context_, certificate);
    SSL_CTX_use_PrivateKey(context_, key);
    X509_free(certificate);
    EVP_PKEY_free(key);
}

Certificate::~Certificate() {
    SSL_CTX_free(context_);
}

}  // namespace desk::wire
