// Every trouble as a real WinINet client meets it: whether the address opens, how the reading ends, what has arrived.
#include <algorithm>

#include "BenchControl.h"
#include "WebServer.h"
#include "WebServerClient.h"
#include "gmock/gmock.h"
#include "gtest/gtest.h"

using bench::Trouble;
using testing::ElementsAre;

namespace {

constexpr size_t kSize = 10000;

class WebServerTroubles : public testing::Test {
 protected:
    WebServerTroubles() : server_(SORVIK_CATALOGUE) {
        bench::ResetBench();
        server_.UseAsProxy();
        server_.Serve("/file", std::string(kSize, 'x'));
    }
    ~WebServerTroubles() override { bench::ResetBench(); }

    bench::WebServer server_;
};

TEST_F(WebServerTroubles, EachIsMetByTheClientAsItsNameSays) {
    const struct {
        Trouble trouble;
        bool opens;
        bool endsCleanly;
        unsigned long status;
        size_t least, most;  // bytes
    } cases[] = {{Trouble::kNone, true, true, 200, kSize, kSize},
                 {Trouble::kNotFound, true, true, 404, 40, 400},
                 {Trouble::kEmpty, true, true, 200, 0, 0},
                 {Trouble::kTruncated, true, true, 200, kSize / 2, kSize / 2},
                 {Trouble::kReset, true, false, 200, 1, kSize / 2},
                 {Trouble::kRefused, false, false, 0, 0, 0},
                 {Trouble::kStalled, true, true, 200, kSize, kSize},
                 {Trouble::kRedirected, true, true, 200, kSize, kSize},
                 {Trouble::kHuge, true, true, 200, 5 * 1024 * 1024, 5 * 1024 * 1024}};
    for (const auto& one : cases) {
        SCOPED_TRACE(static_cast<int>(one.trouble));
        server_.SetTrouble("/fi", one.trouble);
        const Fetched fetched = Fetch("/file");
        EXPECT_EQ(fetched.opened, one.opens);
        EXPECT_EQ(fetched.cleanEnd, one.endsCleanly);
        EXPECT_EQ(fetched.status, one.status);
        EXPECT_GE(fetched.body.size(), one.least);
        EXPECT_LE(fetched.body.size(), one.most);
        const size_t ofFile = one.status == 200 ? std::min(kSize, fetched.body.size()) : 0;
        EXPECT_EQ(fetched.body.substr(0, ofFile), std::string(ofFile, 'x'));
    }
}

TEST_F(WebServerTroubles, ATroubleMeetsItsOwnPathUntilItIsForgotten) {
    server_.SetTrouble("/klimora/", Trouble::kEmpty);
    server_.SetTrouble("/klimora/export/", Trouble::kNotFound);
    EXPECT_EQ(Fetch("/file").body.size(), kSize);
    EXPECT_EQ(Fetch("/klimora/anything").status, 200u);
    EXPECT_EQ(Fetch("/klimora/export/x.xml").status, 404u);
    EXPECT_EQ(Fetch("/klimora/export/x.xml").status, 404u);
    server_.Reset();
    EXPECT_EQ(Fetch("/klimora/export/x.xml").status, 400u);
    EXPECT_EQ(Fetch("/file").status, 404u);
}

TEST_F(WebServerTroubles, RequestsAreLinesOfTheJournalInTheOrderOfTheirArrival) {
    server_.SetTrouble("/file", Trouble::kRedirected);
    Fetch("/file?a=b&c=d");
    Post("/klimora/choose?klsid=1");
    EXPECT_THAT(bench::Journal(), ElementsAre("GET /file?a=b&c=d -> 302", "GET /moved/file?a=b&c=d -> 200",
                                              "POST /klimora/choose?klsid=1 -> 400"));
    EXPECT_THAT(server_.requests(),
                ElementsAre("GET /file?a=b&c=d", "GET /moved/file?a=b&c=d", "POST /klimora/choose?klsid=1"));
}

TEST_F(WebServerTroubles, APlannedFailureDropsTheConnectionAndPublishesNothing) {
    const std::string session = "0123456789ABCDEF0123456789ABCDEF";
    bench::FailCall("POST", 1);
    bench::FailCall("GET", 2);
    EXPECT_FALSE(Post("/klimora/choose?klsid=" + session + "&product=SRC-200-600").opened);
    EXPECT_EQ(Fetch("/klimora/export/" + session + ".xml").status, 404u);
    EXPECT_FALSE(Fetch("/file").opened);
    EXPECT_TRUE(Fetch("/file").opened);
    EXPECT_THAT(
        bench::Journal(),
        ElementsAre("POST /klimora/choose?klsid=" + session + "&product=SRC-200-600 -> dropped",
                    "GET /klimora/export/" + session + ".xml -> 404", "GET /file -> dropped", "GET /file -> 200"));
}

TEST(WebServerProxy, IsTakenBackWithItsServer) {
    bench::WebServer outer(SORVIK_CATALOGUE);
    outer.UseAsProxy();
    outer.Serve("/who", "outer");
    {
        bench::WebServer inner(SORVIK_CATALOGUE);
        inner.UseAsProxy();
        inner.Serve("/who", "inner");
        EXPECT_EQ(Fetch("/who").body, "inner");
    }
    EXPECT_EQ(Fetch("/who").body, "outer");
    bench::ResetBench();
}

}  // namespace
