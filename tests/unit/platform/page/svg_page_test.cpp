#include "platform/page/page_writer.h"

#include <algorithm>

#include "tool_files.h"

namespace korvinel::tool {
namespace {

using platform::Colour;
using platform::Page;
using platform::PageFormat;
using platform::Surface;

std::string svgOf(const Surface& ground) { return pageBytes(Page{"Esame <1>", &ground, 40, {}}, PageFormat::svg); }

/// The number of occurrences of a text in another.
int countIn(const std::string& text, const std::string& part) {
  int count = 0;
  for (std::size_t at = text.find(part); at != std::string::npos; at = text.find(part, at + 1)) ++count;
  return count;
}

TEST(SvgPage, HoldsBoxesAndTracesAtTwoDotsAUnit) {
  Surface ground("Fondo", 100, 50, 10);
  ground.box(10, 10, 30, 20, Colour::lightRed);
  ground.line(0, 0, 10, 20, Colour::blue);
  ground.line(10, 20, 30.125, 10, Colour::blue);
  const std::string svg = svgOf(ground);
  EXPECT_EQ(countIn(svg, "width=\"200\" height=\"80\" viewBox=\"0 0 200 80\""), 1) << svg;
  EXPECT_EQ(countIn(svg, "<title>Esame &lt;1&gt;</title>"), 1) << svg;
  EXPECT_EQ(countIn(svg, "<rect x=\"20\" y=\"20\" width=\"40\" height=\"20\" fill=\"#ff0000\"/>"), 1) << svg;
  EXPECT_EQ(countIn(svg, "<polyline points=\"0,0 20,40 60.25,20\" stroke=\"#000080\" stroke-width=\"2.4\""), 1) << svg;
}

TEST(SvgPage, WritesTextsAsTextsThatEveryReaderTakes) {
  Surface ground("Fondo", 100, 50, 10);
  ground.printAt(5, 10, Colour::black, "a<b & \"c\"  è");
  ground.printAt(5, 20, Colour::black, "x\x01\x1By");
  const std::string svg = svgOf(ground);
  EXPECT_EQ(countIn(svg, "<text xml:space=\"preserve\" x=\"10\" "), 2) << svg;
  EXPECT_EQ(countIn(svg, ">a&lt;b &amp; &quot;c&quot;  è</text>"), 1) << svg;
  const auto isControl = [](char byte) { return byte >= 0 && byte < 0x20 && byte != '\n'; };
  EXPECT_EQ(std::count_if(svg.begin(), svg.end(), isControl), 0) << svg;
}

TEST(SvgPage, OutlinesLettersOnlyWhereTheyStandOnTheGraph) {
  Surface ground("Fondo", 100, 50, 10, Colour::white);
  ground.printAt(5, 30, Colour::black, "libero");
  ground.line(0, 12, 100, 12, Colour::blue);
  ground.printAt(5, 10, Colour::black, "sulla riga");
  const std::string svg = svgOf(ground);
  EXPECT_EQ(countIn(svg, "<text"), 2) << svg;
  EXPECT_EQ(countIn(svg, "<path d=\"M"), 1) << svg;
  EXPECT_EQ(countIn(svg, "stroke=\"#ffffff\" stroke-width=\"6\" fill=\"none\""), 1) << svg;
  EXPECT_LT(svg.find("<path"), svg.find(">sulla riga<"));
}

TEST(SvgPage, PlacesASurfaceOnThePage) {
  const Surface ground("Fondo", 100, 50, 10);
  Surface panel("Grafico", 10, 10, 10, Colour::white);
  panel.box(5, 5, 10, 10, Colour::lightGreen);
  const std::string svg = pageBytes(Page{"p", &ground, 50, {{&panel, {40, 20, 20, 20}}}}, PageFormat::svg);
  EXPECT_EQ(countIn(svg, "<rect x=\"80\" y=\"40\" width=\"40\" height=\"40\" fill=\"#ffffff\"/>"), 1) << svg;
  EXPECT_EQ(countIn(svg, "<rect x=\"100\" y=\"60\" width=\"20\" height=\"20\" fill=\"#00ff00\"/>"), 1) << svg;
}

TEST(SvgPage, ABarEndsWithItsSurface) {
  const Surface ground("Fondo", 100, 50, 10);
  Surface panel("Grafico", 10, 10, 10, Colour::white);
  panel.box(5, 10, 6, -500, Colour::lightGreen);
  const std::string svg = pageBytes(Page{"p", &ground, 50, {{&panel, {40, 20, 20, 20}}}}, PageFormat::svg);
  EXPECT_EQ(countIn(svg, "<rect x=\"100\" y=\"40\" width=\"4\" height=\"40\" fill=\"#00ff00\"/>"), 1) << svg;
}

}  // namespace
}  // namespace korvinel::tool
