// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include <QSslCertificate>
#include <QSslKey>

namespace zumeta::test {

/// For 127.0.0.1, made in this process, and vouched for by nobody.
struct OwnCertificate {
    QSslCertificate certificate;
    QSslKey key;
};
const OwnCertificate& ownCertificate();

/// While it lives, this process trusts that certificate as it does the system's.
class TrustInOwnCertificate {
public:
    TrustInOwnCertificate();
    ~TrustInOwnCertificate();
    TrustInOwnCertificate(const TrustInOwnCertificate&) = delete; // there is one default
    TrustInOwnCertificate& operator=(const TrustInOwnCertificate&) = delete;
};

}
