// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/spectral_data/files/xml_writer.h"

#include <gtest/gtest.h>
#include <limits>

namespace orvanta::spectral {
namespace {

constexpr const char* kHead = "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n";

std::string WithText(std::string_view text) {
    XmlWriter xml;
    xml.Element("a", text, {{"b", text}});
    return xml.Take().substr(std::string_view(kHead).size());
}

TEST(XmlWriter, IndentsByLevel) {
    XmlWriter xml;
    xml.Open("a", {{"version", "1"}, {"kind", "x"}});
    xml.Open("b");
    xml.Element("c", "text");
    xml.Close();
    xml.Close();
    EXPECT_EQ(xml.Take(),
              std::string(kHead) + "<a version=\"1\" kind=\"x\">\n  <b>\n    <c>text</c>\n  </b>\n</a>\n");
}

TEST(XmlWriter, SeparatesNumbersByBlanks) {
    XmlWriter xml;
    const double values[] = {1, 0.25, std::numeric_limits<double>::quiet_NaN()};
    xml.Numbers("v", values);
    xml.Numbers("none", {});
    EXPECT_EQ(xml.Take(), std::string(kHead) + "<v>1 0.25 n/a</v>\n<none></none>\n");
}

TEST(XmlWriter, EscapesMarkup) {
    EXPECT_EQ(WithText("<&>\"'"), "<a b=\"&lt;&amp;&gt;&quot;'\">&lt;&amp;&gt;\"'</a>\n");
}

TEST(XmlWriter, KeepsLineEndsAndTabsThroughAReader) {
    EXPECT_EQ(WithText("\r\n\t"), "<a b=\"&#13;&#10;&#9;\">&#13;\n\t</a>\n");
}

TEST(XmlWriter, ReplacesWhatXmlCannotHold) {
    EXPECT_EQ(WithText(std::string("\0\x1F\xEF\xBF\xBE", 5)),
              "<a b=\"\uFFFD\uFFFD\uFFFD\">\uFFFD\uFFFD\uFFFD</a>\n");
}

TEST(XmlWriter, KeepsEveryOtherCharacter) {
    EXPECT_EQ(WithText("µ\u20AC\U0001F9E0"), "<a b=\"µ\u20AC\U0001F9E0\">µ\u20AC\U0001F9E0</a>\n");
}

} // namespace
} // namespace orvanta::spectral
