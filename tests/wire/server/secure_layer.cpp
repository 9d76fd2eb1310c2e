#include "wire/server/secure_layer.h"

#include <openssl/bio.h>
#include <openssl/evp.h>
#include <openssl/pem.h>
#include <openssl/ssl.h>
#include <openssl/x509v3.h>

#include "wire/server/channel.h"

namespace desk::wire {

namespace {

std::string contentOf(BIO* bio) {
    std::string bytes(BIO_ctrl_pending(bio), '\0');
    if (!bytes.empty()) BIO_read(bio, bytes.data(), static_cast<int>(bytes.size()));
    return bytes;
}

void addName(X509* certificate, const std::string& address) {
    X509_NAME* subject = X509_get_subject_name(certificate);
    X509_NAME_add_entry_by_txt(subject, "CN", MBSTRING_UTF8,
                               reinterpret_cast<const unsigned char*>(address.c_str()), -1, -1, 0);
    X509_set_issuer_name(certificate, subject);
    for (const auto& [kind, value] : {std::pair(NID_subject_alt_name, "IP:" + address),
                                      std::pair(NID_basic_constraints, std::string("critical,CA:TRUE"))}) {
        X509_EXTENSION* extension = X509V3_EXT_conf_nid(nullptr, nullptr, kind, value.c_str());
        X509_add_ext(certificate, extension, -1);
        X509_EXTENSION_free(extension);
    }
}

X509* signedBy(EVP_PKEY* key, const std::string& address) {
    X509* certificate = X509_new();
    X509_set_version(certificate, 2);
    ASN1_INTEGER_set(X509_get_serialNumber(certificate), 1);
    X509_gmtime_adj(X509_getm_notBefore(certificate), -24L * 3600);
    X509_gmtime_adj(X509_getm_notAfter(certificate), 365L * 24 * 3600);
    X509_set_pubkey(certificate, key);
    addName(certificate, address);
    X509_sign(certificate, key, EVP_sha256());
    return certificate;
}

std::string pemOf(X509* certificate) {
    BIO* bio = BIO_new(BIO_s_mem());
    PEM_write_bio_X509(bio, certificate);
    auto text = contentOf(bio);
    BIO_free(bio);
    return text;
}

}  // namespace

Certificate::Certificate(const std::string& address) : context_(SSL_CTX_new(TLS_server_method())) {
    // Later versions send more after the handshake, which this protocol has no place for.
    SSL_CTX_set_max_proto_version(context_, TLS1_2_VERSION);
    EVP_PKEY* key = EVP_EC_gen("P-256");
    X509* certificate = signedBy(key, address);
    pem_ = pemOf(certificate);
    SSL_CTX_use_certificate(context_, certificate);
    SSL_CTX_use_PrivateKey(context_, key);
    X509_free(certificate);
    EVP_PKEY_free(key);
}

Certificate::~Certificate() {
    SSL_CTX_free(context_);
}

SecureLayer::SecureLayer(const Certificate& certificate) : ssl_(SSL_new(certificate.context())) {
    SSL_set_bio(ssl_, BIO_new(BIO_s_mem()), BIO_new(BIO_s_mem()));
    SSL_set_accept_state(ssl_);
}

SecureLayer::~SecureLayer() {
    SSL_free(ssl_);
}

bool SecureLayer::shakeHands(std::string_view received) {
    BIO_write(SSL_get_rbio(ssl_), received.data(), static_cast<int>(received.size()));
    const int result = SSL_do_handshake(ssl_);
    if (result != 1 && SSL_get_error(ssl_, result) != SSL_ERROR_WANT_READ) throw LineGone();
    return result == 1;
}

std::string SecureLayer::takeHandshake() {
    return contentOf(SSL_get_wbio(ssl_));
}

std::string SecureLayer::opened(std::string_view received) {
    BIO_write(SSL_get_rbio(ssl_), received.data(), static_cast<int>(received.size()));
    std::string bytes;
    char buffer[4096];
    for (int count = 0; (count = SSL_read(ssl_, buffer, sizeof buffer)) > 0;)
        bytes.append(buffer, static_cast<std::size_t>(count));
    if ((SSL_get_shutdown(ssl_) & SSL_RECEIVED_SHUTDOWN) != 0 && bytes.empty()) throw LineGone();
    return bytes;
}

std::string SecureLayer::sealed(std::string_view bytes) {
    SSL_write(ssl_, bytes.data(), static_cast<int>(bytes.size()));
    return contentOf(SSL_get_wbio(ssl_));
}

}  // namespace desk::wire
