// XML texts, and changing elements through the XML wrapper.
#include <gtest/gtest.h>
#include <string>

#include "Util/XmlElements.h"
#include "Util/XmlTextBuilder.h"
#include "ticpp.h"

TEST(XmlText, EscapesAfterFormatting) {
    const std::pair<const char*, const char*> cases[] = {
        {"a<b & \"c\"", "a&lt;b &amp; &quot;c&quot;"},
        {"it's > &amp;", "it&apos;s &gt; &amp;amp;"},
        {"\xC5\x73\t\n", "\xC5\x73\t\n"},
        {"50%", "50%"},
        {"50%% of %s and %n", "50% of %s and %n"},  // the value is its own format, without arguments
        {"", ""},
        {nullptr, ""},
    };
    for (const auto& [value, escaped] : cases)
        EXPECT_EQ(XmlTextBuilder::Escape(value), escaped);
    EXPECT_EQ(XmlTextBuilder::Escape("<%s|%d|%.1f>", "a&b", 7, 0.25), "&lt;a&amp;b|7|0.2&gt;");
    EXPECT_EQ(XmlTextBuilder::Escape("%s", "50%%"), "50%%");
    EXPECT_EQ(XmlTextBuilder::Escape(static_cast<const char*>(nullptr), 1), "");
}

TEST(XmlText, FormatsStringsOfEveryLength) {
    for (const size_t length : {0u, 254u, 255u, 256u, 257u, 511u, 512u, 513u, 100000u}) {
        const std::string filler(length, '<');
        XmlTextBuilder builder;
        builder.AppendFormat("%s", filler.c_str());
        EXPECT_EQ(builder.Text(), filler);
        std::string escaped;
        for (size_t i = 0; i < length; ++i)
            escaped += "&lt;";
        EXPECT_EQ(XmlTextBuilder::Escape("%s", filler.c_str()), escaped);
    }
}

TEST(XmlText, AppendsInOrder) {
    XmlTextBuilder builder;
    builder.Append("<Part>");
    builder.Append(static_cast<const char*>(nullptr));
    builder.AppendFormat(nullptr);
    builder.AppendFormat("<Size %s=\"%.*f\"/>", "mm", 2, 160.0);
    builder.Append(std::string("100%d"));
    const unsigned char bytes[] = {0x00, 0x0F, 0xA0, 0xFF};
    builder.AppendHex(bytes, sizeof bytes);
    builder.AppendHex(nullptr, 0);
    EXPECT_EQ(builder.Text(), "<Part><Size mm=\"160.00\"/>100%d000FA0FF");
}

TEST(Xml, SetsTheTextAndKeepsChildElements) {
    ticpp::Document document;
    document.Parse("<r><a>1<b/>2</a><c><b/></c><d/></r>");
    for (const char* name : {"a", "c", "d"})
        document.FirstChildElement()->FirstChildElement(name)->SetText("new");
    EXPECT_EQ(document.FirstChildElement()->ToString(), "<r><a>new<b />2</a><c>new<b /></c><d>new</d></r>");
}

TEST(Xml, FindsOrAppendsAChild) {
    ticpp::Document document;
    document.Parse("<r><a>1</a><b/><a k='&lt;v'>2</a></r>");
    ticpp::Element* const root = document.FirstChildElement();
    EXPECT_EQ(GetOrAddChildElement(nullptr, "a"), nullptr);
    EXPECT_EQ(GetOrAddChildElement(root, nullptr), nullptr);
    EXPECT_EQ(GetOrAddChildElement(root, ""), nullptr);
    EXPECT_EQ(GetOrAddChildElement(root, "a"), root->FirstChildElement("a"));
    ticpp::Element* const added = GetOrAddChildElement(root, "c");
    added->SetAttribute("n", "1");
    EXPECT_EQ(GetOrAddChildElement(root, "c"), added);
    EXPECT_EQ(root->ToString(), "<r><a>1</a><b /><a k=\"&lt;v\">2</a><c n=\"1\" /></r>");
}
