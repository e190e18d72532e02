#include "sha256.h"

#include <openssl/evp.h>

#include <new>

namespace Utils {

Sha256::Sha256()
    : m_context(EVP_MD_CTX_new())
{
    if (!m_context || EVP_DigestInit_ex(m_context.get(), EVP_sha256(), nullptr) != 1)
        throw std::bad_alloc();
}

Sha256::~Sha256() = default;

void Sha256::Free::operator()(evp_md_ctx_st *context) const
{
    EVP_MD_CTX_free(context);
}

void Sha256::add(std::string_view bytes)
{
    EVP_DigestUpdate(m_context.get(), bytes.data(), bytes.size());
}

QByteArray Sha256::result()
{
    unsigned char digest[EVP_MAX_MD_SIZE];
    unsigned int size = 0;
    EVP_DigestFinal_ex(m_context.get(), digest, &size);
    return QByteArray(reinterpret_cast<const char *>(digest), int(size)).toHex();
}

QByteArray Sha256::of(std::string_view bytes)
{
    Sha256 hash;
    hash.add(bytes);
    return hash.result();
}

} // namespace Utils
