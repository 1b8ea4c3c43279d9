#include "platform/CertificateText.h"

#include <QSet>

#include <gtest/gtest.h>

namespace {

const CertificateFacts facts{QDateTime({2026, 1, 2}, {3, 4, 5}, Qt::UTC), QDateTime({2027, 6, 7}, {8, 9, 10}, Qt::UTC),
                             "CN=Issuer", "directory.example"};

TEST(CertificateText, EveryFaultHasATextOfItsOwn)
{
    QSet<QString> texts;
    constexpr int count = int(CertificateFault::Other) + 1;
    for (int fault = 0; fault < count; ++fault)
        texts << certificateText(CertificateFault(fault), facts);
    EXPECT_EQ(texts.size(), count);
    for (const QString &text : texts)
        EXPECT_FALSE(text.isEmpty() || text.contains('%')) << text.toStdString();
}

TEST(CertificateText, SaysWhatAUserNeedsToAskFor)
{
    EXPECT_EQ(certificateText(CertificateFault::Expired, facts),
              "The server's certificate has expired, on 2027-06-07T08:09:10Z.");
    EXPECT_EQ(certificateText(CertificateFault::NotYetValid, facts),
              "The server's certificate is not valid yet, but from 2026-01-02T03:04:05Z on.");
    EXPECT_EQ(certificateText(CertificateFault::UntrustedIssuer, facts),
              "The issuer of the server's certificate, \"CN=Issuer\", is not trusted by this machine.");
    EXPECT_EQ(certificateText(CertificateFault::OtherHost, facts),
              "The server's certificate is for another host than \"directory.example\".");
}

} // namespace
