// Whose the elements of the XML wrapper are, and the helper that gets or adds a child.
#include "ticpp.h"

#include "Util/XmlElements.h"
#include "gtest/gtest.h"

namespace {

class Xml : public testing::Test {
 protected:
    Xml() { document_.Parse("<r><a>1</a><b/><a k='&lt;v'>2</a></r>"); }
    ticpp::Element& Root() { return *document_.FirstChildElement(); }

    ticpp::Document document_;
};

TEST_F(Xml, ReplacedRootIsACopyWithElementsOfItsOwn) {
    ticpp::Document other;
    other.Parse("<x><d>5</d></x>");
    ticpp::Element* original = other.FirstChildElement()->FirstChildElement("d");
    ticpp::Element* root = document_.ReplaceChild(&Root(), *other.FirstChildElement());
    EXPECT_EQ(root, document_.FirstChildElement());
    EXPECT_NE(root->FirstChildElement("d"), original);
    root->FirstChildElement("d")->SetText("6 & 7");
    EXPECT_EQ(original->GetText(), "5");
    EXPECT_EQ(root->ToString(), "<x><d>6 &amp; 7</d></x>");
}

TEST_F(Xml, TextIsSetBesideTheChildElements) {
    ticpp::Document document;
    document.Parse("<r><a>1<b/>2</a><c><b/></c><d/></r>");
    for (const char* name : {"a", "c", "d"})
        document.FirstChildElement()->FirstChildElement(name)->SetText("new");
    EXPECT_EQ(document.FirstChildElement()->ToString(), "<r><a>new<b />2</a><c>new<b /></c><d>new</d></r>");
}

TEST_F(Xml, ChildIsFoundOrAppended) {
    EXPECT_EQ(GetOrAddChildElement(nullptr, "a"), nullptr);
    EXPECT_EQ(GetOrAddChildElement(&Root(), nullptr), nullptr);
    EXPECT_EQ(GetOrAddChildElement(&Root(), ""), nullptr);
    EXPECT_EQ(GetOrAddChildElement(&Root(), "a"), Root().FirstChildElement("a"));
    ticpp::Element* added = GetOrAddChildElement(&Root(), "c");
    added->SetAttribute("n", "1");
    EXPECT_EQ(GetOrAddChildElement(&Root(), "c"), added);
    EXPECT_EQ(Root().ToString(), "<r><a>1</a><b /><a k=\"&lt;v\">2</a><c n=\"1\" /></r>");
}

}  // namespace
