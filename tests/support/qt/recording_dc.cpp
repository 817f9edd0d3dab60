// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/support/qt/recording_dc.h"

#include <algorithm>
#include <array>
#include <cstdio>
#include <utility>

namespace orvanta::test {

namespace {

std::string Written(owl::TColor color) {
    std::array<char, 8> text{};
    std::snprintf(text.data(), text.size(), "#%02X%02X%02X", owl::Red(color), owl::Green(color),
                  owl::Blue(color));
    return text.data();
}

std::string Written(const owl::TPoint& point) {
    return std::to_string(point.x) + "," + std::to_string(point.y);
}

std::string Written(const owl::TRect& rect) {
    return Written(owl::TPoint{rect.left, rect.top}) + "," + Written(owl::TPoint{rect.right, rect.bottom});
}

std::string Written(std::span<const owl::TPoint> points) {
    std::string text;
    for (const owl::TPoint& point : points) {
        text += " " + Written(point);
    }
    return text;
}

std::string Quoted(std::string_view text) {
    return "\"" + std::string(text) + "\"";
}

const char* Written(owl::TextAlign align) {
    constexpr std::array kNames{"left", "center", "right"};
    return kNames[static_cast<std::size_t>(align)];
}

const char* Written(owl::PenStyle style) {
    constexpr std::array kNames{"solid", "dotted", "none"};
    return kNames[static_cast<std::size_t>(style)];
}

} // namespace

std::vector<std::string> RecordingDC::CallsOf(std::initializer_list<std::string_view> kinds) const {
    std::vector<std::string> chosen;
    std::copy_if(calls_.begin(), calls_.end(), std::back_inserter(chosen), [kinds](const std::string& call) {
        return std::find(kinds.begin(), kinds.end(), call.substr(0, call.find(' '))) != kinds.end();
    });
    return chosen;
}

void RecordingDC::Clear() {
    calls_.clear();
    texts_.clear();
    images_.clear();
}

void RecordingDC::SelectPen(const owl::TPen& pen) {
    calls_.push_back("pen " + Written(pen.color) + " " + std::to_string(pen.width) + " " +
                     Written(pen.style));
}

void RecordingDC::SelectBrush(const owl::TBrush& brush) {
    calls_.push_back("brush " + (brush.hollow ? "hollow" : Written(brush.color)));
}

void RecordingDC::SelectFont(const owl::TFont& font) {
    font_ = font;
    calls_.push_back("font " + Quoted(font.face) + " " + std::to_string(font.height) +
                     (font.bold ? " bold" : "") + (font.italic ? " italic" : ""));
}

void RecordingDC::SetTextColor(owl::TColor color) {
    calls_.push_back("textcolor " + Written(color));
}

owl::TextAlign RecordingDC::SetTextAlign(owl::TextAlign align) {
    calls_.push_back(std::string("align ") + Written(align));
    return std::exchange(align_, align);
}

void RecordingDC::Polyline(std::span<const owl::TPoint> points) {
    calls_.push_back("polyline" + Written(points));
}

void RecordingDC::Curve(std::span<const owl::TPointF> points, double width) {
    std::array<char, 64> text{};
    std::snprintf(text.data(), text.size(), "curve %.1f", width);
    std::string call = text.data();
    for (const owl::TPointF& point : points) {
        std::snprintf(text.data(), text.size(), " %.2f,%.2f", point.x, point.y);
        call += text.data();
    }
    calls_.push_back(call);
}

void RecordingDC::Polygon(std::span<const owl::TPoint> points) {
    calls_.push_back("polygon" + Written(points));
}

void RecordingDC::Ellipse(const owl::TRect& rect) {
    calls_.push_back("ellipse " + Written(rect));
}

void RecordingDC::Line(const owl::TPoint& from, const owl::TPoint& to) {
    calls_.push_back("line " + Written(from) + " " + Written(to));
}

void RecordingDC::Rectangle(const owl::TRect& rect) {
    calls_.push_back("rectangle " + Written(rect));
}

void RecordingDC::FillRect(const owl::TRect& rect, owl::TColor color) {
    calls_.push_back("fill " + Written(rect) + " " + Written(color));
}

void RecordingDC::FrameRect(const owl::TRect& rect, owl::TColor color) {
    calls_.push_back("frame " + Written(rect) + " " + Written(color));
}

void RecordingDC::SetClip(const owl::TRect& rect) {
    calls_.push_back("clip " + Written(rect));
}

void RecordingDC::ClearClip() {
    calls_.emplace_back("noclip");
}

void RecordingDC::TextOut(const owl::TPoint& at, std::string_view text) {
    texts_.emplace_back(text);
    calls_.push_back("text " + Written(at) + " " + Written(align_) + " " + Quoted(text));
}

owl::TSize RecordingDC::GetTextExtent(std::string_view text) const {
    const auto characters = std::count_if(text.begin(), text.end(), [](char byte) {
        return (static_cast<unsigned char>(byte) & 0xC0U) != 0x80U;
    });
    return {static_cast<int>(characters) * kCharacterWidth, font_.height};
}

void RecordingDC::BlendRect(const owl::TRect& rect, owl::TColor color, std::uint8_t alpha) {
    calls_.push_back("blend " + Written(rect) + " " + Written(color) + " " + std::to_string(alpha));
}

void RecordingDC::DrawImage(const owl::TRect& rect, const owl::TImage& image) {
    images_.push_back(image);
    calls_.push_back("image " + Written(rect) + " " + std::to_string(image.width) + "x" +
                     std::to_string(image.height));
}

} // namespace orvanta::test
