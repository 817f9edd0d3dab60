// SPDX-License-Identifier: GPL-3.0-or-later
#include <QDir>
#include <QFile>
#include <QImage>
#include <QPainter>
#include <QRegularExpression>
#include <QSet>
#include <QSvgRenderer>
#include <QXmlStreamReader>
#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace {

/// Of the buttons: bitmaps, or commands where a button has no bitmap; then the view's own.
constexpr int kNumbers[] = {2059,  2064,  2065,  2068,  2069,  2070,  2071,  2072,  2079,  2080,
                            2081,  2082,  2083,  2084,  2328,  14376, 14406, 14437, 14439, 14447,
                            14450, 14451, 14486, 14708, 14727, 14736, 28784, 28785};

QByteArray Contents(const QString& path) {
    QFile file(path);
    EXPECT_TRUE(file.open(QIODevice::ReadOnly)) << path.toStdString();
    return file.readAll();
}

QImage Rendered(QSvgRenderer& renderer, int size) {
    QImage image(size, size, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    QPainter painter(&image);
    renderer.render(&painter);
    return image;
}

int DrawnPixels(const QImage& image) {
    int drawn = 0;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            drawn += qAlpha(image.pixel(x, y)) > 0 ? 1 : 0;
        }
    }
    return drawn;
}

/// Alpha along the outermost pixels; a shape that touches them is cut off.
int LargestAlphaAtTheEdge(const QImage& image) {
    int largest = 0;
    const int last = image.width() - 1;
    for (int i = 0; i <= last; ++i) {
        for (const QRgb pixel :
             {image.pixel(i, 0), image.pixel(i, last), image.pixel(0, i), image.pixel(last, i)}) {
            largest = std::max(largest, qAlpha(pixel));
        }
    }
    return largest;
}

std::vector<std::string> Names() {
    std::vector<std::string> names;
    for (const QString& file : QDir(":/icons").entryList({"*.svg"})) {
        names.push_back(file.section('.', 0, 0).toStdString());
    }
    return names;
}

class Icon : public testing::TestWithParam<std::string> {
protected:
    static QString Path() { return QString(":/icons/%1.svg").arg(GetParam().c_str()); }
    static bool IsApplication() { return GetParam() == "orvanta"; }
};

TEST_P(Icon, IsWellFormedAndScalable) {
    QXmlStreamReader xml(Contents(Path()));
    ASSERT_TRUE(xml.readNextStartElement());
    EXPECT_EQ(xml.name(), QString("svg"));
    EXPECT_EQ(xml.attributes().value("viewBox"),
              IsApplication() ? QString("0 0 64 64") : QString("0 0 24 24"));
    while (!xml.atEnd()) {
        xml.readNext();
    }
    EXPECT_FALSE(xml.hasError()) << xml.errorString().toStdString();
    EXPECT_TRUE(QSvgRenderer(Path()).isValid());
}

TEST_P(Icon, DrawsSomethingInsideItsSquareAtEverySize) {
    QSvgRenderer renderer(Path());
    for (const int size : {16, 24, 32, 48, 96}) {
        const QImage image = Rendered(renderer, size);
        const int pixels = size * size;
        EXPECT_GT(DrawnPixels(image), pixels / 10) << size;
        EXPECT_LE(LargestAlphaAtTheEdge(image), 128) << size;
    }
}

TEST_P(Icon, HasOneColorSoThatItCanBeTinted) {
    static const QRegularExpression color("(?:fill|stroke)=\"(#[^\"]*)\"");
    QSet<QString> colors;
    for (auto matches = color.globalMatch(QString::fromUtf8(Contents(Path()))); matches.hasNext();) {
        colors << matches.next().captured(1);
    }
    // The application's own icon is shown as it is, on its own background.
    EXPECT_EQ(colors.size() == 1, !IsApplication());
}

INSTANTIATE_TEST_SUITE_P(All, Icon, testing::ValuesIn(Names()), [](const auto& icon) { return icon.param; });

TEST(Icons, ExistForEveryNumber) {
    for (const int number : kNumbers) {
        EXPECT_TRUE(QFile::exists(QString(":/icons/%1.svg").arg(number))) << number;
    }
}

TEST(Icons, AreAllThoseOfTheFolder) {
    const QStringList files = QDir(ORVANTA_RESOURCES "/icons").entryList({"*.svg"});
    EXPECT_GE(files.size(), 25);
    for (const QString& name : files) {
        EXPECT_TRUE(QFile::exists(":/icons/" + name)) << name.toStdString();
    }
    EXPECT_EQ(QDir(":/icons").entryList({"*.svg"}).size(), files.size() + std::ssize(kNumbers));
}

TEST(Icons, OfTwoStatesDiffer) {
    QSvgRenderer up(QString(":/icons/2069.svg"));
    QSvgRenderer down(QString(":/icons/2068.svg"));
    EXPECT_NE(Rendered(up, 24), Rendered(down, 24));
}

} // namespace
