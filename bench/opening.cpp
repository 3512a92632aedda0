#include "bench/opening.h"

#include <malloc.h>
#include <openssl/evp.h>

#include <memory>
#include <pugixml.hpp>

#include "bench/large_database.h"

namespace pelk {
namespace {

constexpr unsigned char kKey[32] = {};
constexpr unsigned char kNonce[12] = {};

unsigned char* bytesOf(std::string& text) {
    return reinterpret_cast<unsigned char*>(text.data());
}

const unsigned char* bytesOf(const std::string& text) {
    return reinterpret_cast<const unsigned char*>(text.data());
}

}  // namespace

LargeStore::LargeStore(const std::string& folder)
    : desktop(folder), platform(desktop.services()), storage(platform) {
    storage.saveDatabase(*storage.parse(makeLargeDocument(kMostContacts, kManyRelations)));
    path = platform.files.join(storage.databaseFolder(), "pelk.db");
}

void giveMemoryBack() {
    ::malloc_trim(0);
}

BareOpening::BareOpening(std::string xml) {
    const std::unique_ptr<EVP_CIPHER_CTX, decltype(&EVP_CIPHER_CTX_free)> context(
        EVP_CIPHER_CTX_new(), &EVP_CIPHER_CTX_free);
    std::string sealed(xml.size(), '\0');
    int size = 0;
    EVP_EncryptInit_ex(context.get(), EVP_aes_256_gcm(), nullptr, kKey, kNonce);
    EVP_EncryptUpdate(context.get(), bytesOf(sealed), &size, bytesOf(xml),
                      static_cast<int>(xml.size()));
    // A multiple of three needs no Base64 padding, which the decoder does not report.
    sealed.resize(sealed.size() / 3 * 3);
    encoded_.resize(sealed.size() / 3 * 4);
    EVP_EncodeBlock(bytesOf(encoded_), bytesOf(sealed), static_cast<int>(sealed.size()));
}

void BareOpening::run() const {
    const std::unique_ptr<EVP_CIPHER_CTX, decltype(&EVP_CIPHER_CTX_free)> context(
        EVP_CIPHER_CTX_new(), &EVP_CIPHER_CTX_free);
    std::string sealed(encoded_.size() / 4 * 3, '\0');
    EVP_DecodeBlock(bytesOf(sealed), bytesOf(encoded_), static_cast<int>(encoded_.size()));
    std::string plain(sealed.size(), '\0');
    int size = 0;
    EVP_DecryptInit_ex(context.get(), EVP_aes_256_gcm(), nullptr, kKey, kNonce);
    EVP_DecryptUpdate(context.get(), bytesOf(plain), &size, bytesOf(sealed),
                      static_cast<int>(sealed.size()));
    pugi::xml_document document;
    document.load_buffer(plain.data(), plain.size());
}

}  // namespace pelk
