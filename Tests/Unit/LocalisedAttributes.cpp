// Descriptions by language and links by country, as they reach the record: what is stored, in which order, and what a
// failure leaves. The record database is a recorder here; numbers and names come from the sample's dictionary.
#include "LocalisedAttributes.h"

#include <fstream>
#include <sstream>
#include <stdexcept>
#include <string>
#include <vector>

#include "BenchAutoCAD.h"
#include "ImportPatch.h"
#include "gtest/gtest.h"

namespace {

std::vector<std::string> insertions;  // number, blank, text
size_t failingInsertion = 0;

short RecordInsertion(KB_HANDLE database, KB_RECORD* record, short attribute, const void* value, short count) {
    EXPECT_EQ(database, 7);
    EXPECT_EQ(*record, &insertions);
    insertions.push_back(std::to_string(attribute) + " " + std::string(static_cast<const char*>(value), count));
    if (insertions.size() == failingInsertion) throw std::runtime_error("no room");
    return 0;
}

class LocalisedAttributes : public testing::Test {
 protected:
    using Setter = int(const KB_HANDLE* database, KB_RECORD* record, const ticpp::Element& device);

    static std::vector<std::string> Stored(Setter* set, const std::string& children, size_t failing = 0) {
        insertions.clear();
        failingInsertion = failing;
        ticpp::Document document;
        document.Parse("<device>" + children + "</device>");
        const KB_HANDLE database = 7;
        KB_RECORD record = &insertions;
        EXPECT_EQ(set(&database, &record, *document.FirstChildElement()), 0);
        return insertions;
    }

    // The dictionary's attributes whose names begin so, in its order: number, blank, name.
    static std::vector<std::string> InDictionary(const std::string& start) {
        std::ifstream dictionary(SAMPLE_FOLDER "/sorvik.ddk");
        std::vector<std::string> attributes;
        for (std::string line; std::getline(dictionary, line);) {
            std::istringstream words(line);
            std::string word, number, form, fewest, most, name;
            words >> word >> number >> form >> fewest >> most >> name;
            if (word == "attribute" && name.size() > start.size() && name.compare(0, start.size(), start) == 0)
                attributes.push_back(number + " " + name);
        }
        return attributes;
    }

    // A child for each of them, last to first, with its own name for text.
    static std::string Children(const std::vector<std::string>& attributes) {
        std::string children;
        for (const std::string& attribute : attributes) {
            const std::string name = attribute.substr(attribute.find(' ') + 1);
            children.insert(0, "<" + name + ">" + name + "</" + name + ">");
        }
        return children;
    }

    const std::vector<std::string> descriptions_ = InDictionary("Description");
    const std::vector<std::string> links_ = InDictionary("kpdWeblink");

 private:
    const ImportPatch patch_{"kbinsertatt", RecordInsertion};
};

TEST_F(LocalisedAttributes, EveryOneOfTheDictionaryInItsOrder) {
    ASSERT_EQ(descriptions_.size(), 31u);
    ASSERT_EQ(links_.size(), 34u);
    const std::string all = Children(links_) + "<kpdWeblink>no country</kpdWeblink>" + Children(descriptions_);
    EXPECT_EQ(Stored(SetAttributeDescriptionNN, all), descriptions_);
    EXPECT_EQ(Stored(SetAttributeWebLinkNN, all), links_);
}

TEST_F(LocalisedAttributes, EmptyAndMisspeltOnesAreSkipped) {
    EXPECT_EQ(Stored(SetAttributeDescriptionNN,
                     "<DescriptionFIN/><DescriptionGB>a</DescriptionGB><descriptiongbr>b</descriptiongbr>"
                     "<DescriptionDEU>D\xC3\xA4mpfer</DescriptionDEU>"),
              std::vector<std::string>{"9553 D\xC3\xA4mpfer"})
        << "the length is in bytes";
}

TEST_F(LocalisedAttributes, AFailureEndsTheWalkAndIsTold) {
    EXPECT_EQ(Stored(SetAttributeDescriptionNN, Children(descriptions_), 3).size(), 3u);
    EXPECT_EQ(Stored(SetAttributeWebLinkNN, Children(links_), 2).size(), 2u);
    EXPECT_EQ(bench::Transcript(),
              "\nSorvik Klimora Cloud Plugin: SetAttributeDescriptionNN "
              "PlugIn/KL_Conn_DevicesData(74):SetAttributeDescriptionNN no room\n"
              "\nSorvik Klimora Cloud Plugin: SetAttributeWebLinkNN "
              "PlugIn/KL_Conn_DevicesData(140):SetAttributeWebLinkNN no room\n");
}

}  // namespace
