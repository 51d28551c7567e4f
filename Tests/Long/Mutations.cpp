// Results that are nearly right, 2,000 of them, and results around the limits of the fence.
#include <algorithm>
#include <cstdio>
#include <random>

#include "HostileBench.h"

namespace {

constexpr unsigned kSeed = 20100801;
constexpr int kMutations = 2000;

class Mutations : public HostileBench {
 protected:
    // What is queued is the three lines of Klimora's command and nothing else.
    bool CommitsOn(const std::string& result) {
        TheWebServer().PublishInstead(result);
        if (!RunsCleanly()) return false;
        const std::string queued = Calls("AcApDocManager::sendStringToExecute ").at(0);
        EXPECT_EQ(std::count(queued.begin(), queued.end(), '\\'), 3) << queued;  // each stands for a line's end
        for (const char c : queued)
            EXPECT_TRUE((c >= ' ' && c != 0x7F) || c < 0) << queued;
        return true;
    }

    const std::string good_ = GoodResult();
};

// The result after one to three changes; the same for the same number.
std::string Mutated(std::string text, unsigned number) {
    static const std::string extremes[] = {"",
                                           " ",
                                           "0",
                                           "-1",
                                           "99999999999999999999",
                                           "1e999",
                                           "nan",
                                           "\x01",
                                           "\x7F",
                                           "\t",
                                           "&#10;",
                                           "&#27;",
                                           "A&#13;B",
                                           "A\nB",
                                           "\xFF\xFE",
                                           "\xC3",
                                           "\xED\xA0\x80",
                                           "%s%n",
                                           "%%",
                                           "&",
                                           "&x;",
                                           "]]>",
                                           "../../x",
                                           "http://x.example/",
                                           std::string(300, 'A'),
                                           std::string(40000, '9'),
                                           std::string(70000, 'x')};
    std::mt19937 random(kSeed + number);
    const auto below = [&](size_t bound) { return bound ? random() % bound : 0; };
    for (size_t changes = 1 + below(3); changes > 0; --changes) {
        // Often at the product's key, which goes furthest.
        const size_t at = below(8) ? below(text.size()) : std::min(text.find("<ID>"), text.size() - 1);
        const size_t length = 1 + below(below(4) ? 8 : 400), change = below(6);
        const size_t open = text.find('<', at), close = text.find('>', open), next = text.find('<', close);
        const size_t nextClose = text.find('>', next);
        if (change == 0) text[at] = static_cast<char>(below(256));
        if (change == 1) text.erase(at, length);
        if (change == 2) text.insert(at, text.substr(at, length));
        if (change < 3 || nextClose == std::string::npos) continue;
        const std::string tag = text.substr(open, close + 1 - open), value = text.substr(close + 1, next - close - 1);
        if (change == 3)
            text.replace(open, nextClose + 1 - open, text.substr(next, nextClose + 1 - next) + value + tag);
        else
            text.replace(close + 1, value.size(), extremes[below(std::size(extremes))]);
    }
    return text;
}

TEST_F(Mutations, OfAResult) {
    std::printf("seed %u; the last mutation that is named before a crash is its cause:", kSeed);
    int committed = 0;
    for (int number = 1; number <= kMutations; ++number) {
        if (!IsWanted(number)) continue;
        std::printf(" %d", number);
        std::fflush(stdout);
        SCOPED_TRACE(OnceMore(number));
        committed += CommitsOn(Mutated(good_, static_cast<unsigned>(number)));
    }
    std::printf("\n%d of them committed\n", committed);
    EXPECT_GE(committed, IsWanted(0) ? 200 : 0);
}

TEST_F(Mutations, AroundTheLimits) {
    const auto with = [this](size_t count, const std::string& start, const std::string& piece, const std::string& end) {
        std::string text;
        for (size_t i = 0; i < count; ++i)
            text += piece == " n" ? piece + std::to_string(i) + "=''" : piece;
        for (size_t i = 0; i < count && end == "</a>"; ++i)
            text += end;
        return std::string(good_).insert(good_.rfind("</"), start + text + (end == "</a>" ? "" : end));
    };
    const struct {
        size_t most;
        const char *start, *piece, *end, *told;
    } cases[] = {{199, "", "<a>", "</a>", "/output.xml: More than 200 levels of elements (line "},
                 {200, "<a", " n", "/>", "/output.xml: More than 200 attributes in an element (line "},
                 {16 * 1024 * 1024 - good_.size(), "", " ", "", "/output.xml: More than 16 MB (line "}};
    for (const auto& c : cases) {
        EXPECT_TRUE(CommitsOn(with(c.most, c.start, c.piece, c.end))) << Told();
        EXPECT_FALSE(CommitsOn(with(c.most + 1, c.start, c.piece, c.end)));
        EXPECT_NE(Told().find("Sorvik Klimora Cloud Plugin: Can't parse xml data "), std::string::npos) << Told();
        EXPECT_NE(Told().find(c.told), std::string::npos) << Told();
    }
}

}  // namespace
