#pragma once

#include "hostexport.h"

#include <QByteArray>

#include <memory>
#include <string_view>

struct evp_md_ctx_st;

namespace Utils {

/// Computes the SHA-256 of bytes with OpenSSL, which has the processor's own instructions for it.
/// Throws std::bad_alloc.
class HOST_EXPORT Sha256
{
public:
    Sha256();
    ~Sha256();

    void add(std::string_view bytes);

    /// In hexadecimal. To be called once.
    QByteArray result();

    static QByteArray of(std::string_view bytes);

private:
    struct Free
    {
        void operator()(evp_md_ctx_st *context) const;
    };
    const std::unique_ptr<evp_md_ctx_st, Free> m_context;
};

} // namespace Utils
