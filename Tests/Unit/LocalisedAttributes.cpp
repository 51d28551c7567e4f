// Descriptions by language and links by country, as they reach the record: what is stored, in which order, and what a
// failure leaves. The record database is a recorder here.
#include "LocalisedAttributes.h"

#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

#include "BenchAutoCAD.h"
#include "ImportPatch.h"
#include "KL_Conn_DevicesData.h"
#include "gtest/gtest.h"

namespace {

struct Insertion {
    short database;
    KB_RECORD record;
    short attribute;
    std::string text;
};
std::vector<Insertion> insertions;
size_t failingInsertion = 0;

short RecordInsertion(KB_HANDLE database, KB_RECORD* record, short attribute, const void* value, short count) {
    insertions.push_back({database, *record, attribute, std::string(static_cast<const char*>(value), count)});
    if (insertions.size() == failingInsertion) throw std::runtime_error("no room");
    return 0;
}

class LocalisedAttributes : public testing::Test {
 protected:
    using Store = int(const KB_HANDLE* database, KB_RECORD* record, const ticpp::Element& device);

    LocalisedAttributes() {
        insertions.clear();
        failingInsertion = 0;
    }

    void Run(Store* store, const std::string& children) {
        ticpp::Document document;
        document.Parse("<device>" + children + "</device>");
        const KB_HANDLE database = 7;
        KB_RECORD record = this;
        EXPECT_EQ(store(&database, &record, *document.FirstChildElement()), 0);
        for (const Insertion& insertion : insertions) {
            EXPECT_EQ(insertion.database, 7);
            EXPECT_EQ(insertion.record, this);
        }
    }

    static std::vector<int> Attributes() {
        std::vector<int> attributes;
        for (const Insertion& insertion : insertions)
            attributes.push_back(insertion.attribute);
        return attributes;
    }

    // Elements of a whole table from its end to its start, each with its own name for text.
    template <size_t size>
    static std::string Backwards(const LocalisedAttribute (&table)[size]) {
        std::string children;
        for (size_t i = size; i > 0; --i) {
            const std::string name = table[i - 1].element;
            children += "<" + name + ">" + name + "</" + name + ">";
        }
        return children;
    }

    static int AttributeOf(const std::string& text) {
        for (const Insertion& insertion : insertions)
            if (insertion.text == text) return insertion.attribute;
        return 0;
    }

 private:
    const ImportPatch patch_{"kbinsertatt", RecordInsertion};
};

// All numbers of these ranges, ends included.
std::vector<int> Numbers(const std::vector<std::pair<int, int>>& ranges) {
    std::vector<int> numbers;
    for (const auto& [first, last] : ranges)
        for (int number = first; number <= last; ++number)
            numbers.push_back(number);
    return numbers;
}

TEST_F(LocalisedAttributes, TablesGiveOrderAndNumbers) {
    Run(SetAttributeDescriptionNN, Backwards(kDescriptionAttributes));
    EXPECT_EQ(Attributes(), Numbers({{9550, 9574}, {9590, 9595}}));
    for (const auto& [name, number] : {std::pair{"DescriptionFIN", 9550},
                                       {"DescriptionGBR", 9552},
                                       {"Description_FL", 9569},
                                       {"DescriptionHRV", 9574},
                                       {"DescriptionSVN", 9590},
                                       {"Description_AR", 9591},
                                       {"DescriptionUS", 9595}})
        EXPECT_EQ(AttributeOf(name), number) << name;

    insertions.clear();
    Run(SetAttributeWebLinkNN, Backwards(kWebLinkAttributes));
    EXPECT_EQ(Attributes(), Numbers({{8500, 8518}, {8520, 8528}, {8530, 8535}}));
    for (const auto& [name, number] : {std::pair{"kpdWeblinkFIN", 8500},
                                       {"kpdWeblinkGBR", 8503},
                                       {"kpdWeblinkRUS", 8518},
                                       {"kpdWeblinkSVK", 8520},
                                       {"kpdWeblinkTUR", 8528},
                                       {"kpdWeblinkCHE", 8530},
                                       {"kpdWeblinkBRA", 8535}})
        EXPECT_EQ(AttributeOf(name), number) << name;
}

TEST_F(LocalisedAttributes, EmptyAndMisspeltOnesAreSkipped) {
    Run(SetAttributeDescriptionNN,
        "<DescriptionFIN/><DescriptionGB>a</DescriptionGB><descriptiongbr>b</descriptiongbr>"
        "<DescriptionDEU>Gr\xC3\xB6\xC3\x9F"
        "e</DescriptionDEU><kpdWeblinkFIN>c</kpdWeblinkFIN>");
    ASSERT_EQ(Attributes(), std::vector<int>{9553});
    EXPECT_EQ(insertions[0].text,
              "Gr\xC3\xB6\xC3\x9F"
              "e")
        << "the length is in bytes";
}

TEST_F(LocalisedAttributes, AFailureEndsTheWalkAndIsTold) {
    const struct {
        Store* store;
        std::string children;
        const char* told;
    } cases[] = {
        {SetAttributeDescriptionNN, Backwards(kDescriptionAttributes),
         "SetAttributeDescriptionNN PlugIn/KL_Conn_DevicesData(74):SetAttributeDescriptionNN"},
        {SetAttributeWebLinkNN, Backwards(kWebLinkAttributes),
         "SetAttributeWebLinkNN PlugIn/KL_Conn_DevicesData(140):SetAttributeWebLinkNN"},
    };
    for (const auto& c : cases) {
        insertions.clear();
        bench::ClearTranscript();
        failingInsertion = 3;
        Run(c.store, c.children);
        EXPECT_EQ(insertions.size(), 3u) << c.told;
        EXPECT_EQ(bench::Transcript(), std::string("\nSorvik Klimora Cloud Plugin: ") + c.told + " no room\n");
    }
}

}  // namespace
