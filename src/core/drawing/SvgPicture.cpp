#include "core/drawing/SvgPicture.h"

#include "core/drawing/NumberReader.h"

#include <libxml/parser.h>
#include <libxml/tree.h>

#include <algorithm>
#include <charconv>
#include <cmath>
#include <map>
#include <memory>
#include <numbers>
#include <string>

namespace nalt {

namespace {

using Document = std::unique_ptr<xmlDoc, decltype(&xmlFreeDoc)>;

/// x' = a x + c y + e, y' = b x + d y + f.
struct Transform {
  double a = 1.0, b = 0.0, c = 0.0, d = 1.0, e = 0.0, f = 0.0;

  Point2 operator()(Point2 p) const { return {a * p.x + c * p.y + e, b * p.x + d * p.y + f}; }
  double scale() const { return std::sqrt(std::abs(a * d - b * c)); }
};

/// First `inner`, then `outer`.
Transform operator*(const Transform& outer, const Transform& inner)
{
  const Point2 origin = outer({inner.e, inner.f});
  return {outer.a * inner.a + outer.c * inner.b,
          outer.b * inner.a + outer.d * inner.b,
          outer.a * inner.c + outer.c * inner.d,
          outer.b * inner.c + outer.d * inner.d,
          origin.x,
          origin.y};
}

/// What an element hands down to those inside of it.
struct Style {
  std::string fill = "#000000";
  std::string stroke = "none";
  double strokeWidth = 1.0;
  double opacity = 1.0;
  Transform transform;
};

std::string attribute(const xmlNode* node, const char* name)
{
  xmlChar* value = xmlGetProp(node, reinterpret_cast<const xmlChar*>(name));
  const std::string text = value ? reinterpret_cast<const char*>(value) : "";
  xmlFree(value);
  return text;
}

double number(const xmlNode* node, const char* name, double otherwise = 0.0)
{
  double value = otherwise;
  const std::string text = attribute(node, name);
  NumberReader(text).number(value);
  return value;
}

std::string nameOf(const xmlNode* node)
{
  return reinterpret_cast<const char*>(node->name);
}

Transform parseTransform(const std::string& text)
{
  Transform result;
  std::size_t at = 0;
  while (true) {
    const std::size_t open = text.find('(', at);
    const std::size_t close = open == std::string::npos ? open : text.find(')', open);
    if (close == std::string::npos) return result;
    const std::size_t begin = text.find_first_not_of(" ,\n\t", at);
    const std::string kind = text.substr(begin, open - begin);
    const std::string inside = text.substr(open + 1, close - open - 1);
    NumberReader numbers(inside);
    double x = 0.0;
    double y = 0.0;
    numbers.number(x);
    const bool two = numbers.number(y);
    if (kind == "translate") {
      result = result * Transform{1, 0, 0, 1, x, y};
    } else if (kind == "scale") {
      result = result * Transform{x, 0, 0, two ? y : x, 0, 0};
    } else if (kind == "rotate") {
      double cy = 0.0;
      numbers.number(cy);
      const double angle = x * std::numbers::pi / 180.0;
      const Transform turn{std::cos(angle), std::sin(angle), -std::sin(angle), std::cos(angle), 0, 0};
      result = result * Transform{1, 0, 0, 1, y, cy} * turn * Transform{1, 0, 0, 1, -y, -cy};
    }
    at = close + 1;
  }
}

/// "#rgb" or "#rrggbb"; anything else is black.
Rgba parseColor(const std::string& text, double alpha)
{
  unsigned value = 0;
  if (text.size() > 1 && text[0] == '#') std::from_chars(text.data() + 1, text.data() + text.size(), value, 16);
  if (text.size() == 4) value = (value >> 8 & 15U) * 0x110000 + (value >> 4 & 15U) * 0x1100 + (value & 15U) * 0x11;
  return {(value >> 16 & 255U) / 255.0, (value >> 8 & 255U) / 255.0, (value & 255U) / 255.0, alpha};
}

class Painter {
public:
  explicit Painter(Raster& raster) : raster_(raster) {}

  void paintChildren(const xmlNode* parent, const Style& style)
  {
    for (const xmlNode* node = parent->children; node; node = node->next)
      if (node->type == XML_ELEMENT_NODE) paint(node, style);
  }

  static Style inherit(const xmlNode* node, Style style)
  {
    if (const std::string fill = attribute(node, "fill"); !fill.empty()) style.fill = fill;
    if (const std::string stroke = attribute(node, "stroke"); !stroke.empty()) style.stroke = stroke;
    style.strokeWidth = number(node, "stroke-width", style.strokeWidth);
    style.opacity *= number(node, "opacity", 1.0);
    style.transform = style.transform * parseTransform(attribute(node, "transform"));
    return style;
  }

private:
  void paint(const xmlNode* node, const Style& outer)
  {
    const std::string name = nameOf(node);
    if (name == "linearGradient") {
      readGradient(node, outer.transform);
      return;
    }
    const Style style = inherit(node, outer);
    if (name == "g" || name == "defs")
      paintChildren(node, style);
    else
      paintShape(shapeOf(node, name), style);
  }

  static Shape shapeOf(const xmlNode* node, const std::string& name)
  {
    if (name == "path") return shapeOfPath(attribute(node, "d"));
    if (name == "rect")
      return roundedRectangle(number(node, "x"), number(node, "y"), number(node, "width"), number(node, "height"),
                              number(node, "rx"));
    if (name == "circle")
      return ellipse({number(node, "cx"), number(node, "cy")}, number(node, "r"), number(node, "r"));
    if (name == "ellipse")
      return ellipse({number(node, "cx"), number(node, "cy")}, number(node, "rx"), number(node, "ry"));
    if (name == "line")
      return {{{{number(node, "x1"), number(node, "y1")}, {number(node, "x2"), number(node, "y2")}}, false}};
    if (name == "polygon" || name == "polyline") return polygon(attribute(node, "points"), name == "polygon");
    return {};
  }

  void paintShape(const Shape& shape, const Style& style)
  {
    if (shape.empty()) return;
    if (style.fill != "none") raster_.fill(placed(shape, style.transform), paintOf(style.fill, style.opacity));
    if (style.stroke != "none" && style.strokeWidth > 0.0)
      raster_.fill(stroked(placed(shape, style.transform), style.strokeWidth * style.transform.scale()),
                   paintOf(style.stroke, style.opacity));
  }

  static Shape placed(Shape shape, const Transform& transform)
  {
    for (Outline& outline : shape)
      for (Point2& p : outline.points)
        p = transform(p);
    return shape;
  }

  Paint paintOf(const std::string& text, double opacity) const
  {
    if (text.starts_with("url(#") && text.ends_with(")")) {
      const auto found = gradients_.find(text.substr(5, text.size() - 6));
      if (found != gradients_.end()) return found->second;
    }
    Paint paint;
    paint.color = parseColor(text, opacity);
    return paint;
  }

  void readGradient(const xmlNode* node, const Transform& transform)
  {
    Paint paint;
    paint.from = transform({number(node, "x1"), number(node, "y1")});
    paint.to = transform({number(node, "x2"), number(node, "y2")});
    for (const xmlNode* stop = node->children; stop; stop = stop->next) {
      if (stop->type != XML_ELEMENT_NODE) continue;
      paint.stops.push_back(
          {number(stop, "offset"), parseColor(attribute(stop, "stop-color"), number(stop, "stop-opacity", 1.0))});
    }
    gradients_[attribute(node, "id")] = paint;
  }

  Raster& raster_;
  std::map<std::string, Paint> gradients_;
};

} // namespace

std::optional<Raster> drawSvg(std::string_view svg, int width, int height)
{
  constexpr int options = XML_PARSE_NOERROR | XML_PARSE_NOWARNING | XML_PARSE_NONET;
  const Document document(xmlReadMemory(svg.data(), static_cast<int>(svg.size()), nullptr, nullptr, options),
                          &xmlFreeDoc);
  const xmlNode* top = document ? xmlDocGetRootElement(document.get()) : nullptr;
  if (!top || nameOf(top) != "svg") return std::nullopt;

  const std::string viewBox = attribute(top, "viewBox");
  NumberReader numbers(viewBox);
  double x = 0.0, y = 0.0, w = 0.0, h = 0.0;
  if (!numbers.number(x) || !numbers.number(y) || !numbers.number(w) || !numbers.number(h) || w <= 0.0 || h <= 0.0)
    return std::nullopt;

  Raster raster(width, height);
  Style style;
  style.transform = Transform{width / w, 0, 0, height / h, 0, 0} * Transform{1, 0, 0, 1, -x, -y};
  Painter(raster).paintChildren(top, Painter::inherit(top, style));
  return raster;
}

} // namespace nalt
