#include "views/registered_domain.h"

#include <gtest/gtest.h>

namespace pelk {
namespace {

TEST(RegisteredDomain, IsOneLabelBelowThePublicSuffix) {
    const std::pair<const char*, const char*> kNames[] = {
        {"mail.eu.intel.com", "intel.com"},
        {"news.bbc.co.uk", "bbc.co.uk"},
        {"co.uk", "co.uk"},
        {"uk", "uk"},
        {"localhost", "localhost"},
        {"a.b.unknown", "b.unknown"},
        // ck has a wildcard and an exception.
        {"a.shop.gov.ck", "shop.gov.ck"},
        {"gov.ck", "gov.ck"},
        {"mail.www.ck", "www.ck"},
        {"x.city.kawasaki.jp", "city.kawasaki.jp"},
        {"x.ward.kawasaki.jp", "x.ward.kawasaki.jp"},
        // A company that gives out subdomains owns the name.
        {"a.github.io", "github.io"},
        {"[192.168.1.7]", "[192.168.1.7]"},
        {"192.168.1.7", "192.168.1.7"},
        {"a..com", ".com"},
        {".com", ".com"},
        {"x.com.", "com."},
        {"", ""},
    };
    for (const auto& [domain, name] : kNames)
        EXPECT_EQ(registeredDomain(domain), name) << domain;
}

}  // namespace
}  // namespace pelk
