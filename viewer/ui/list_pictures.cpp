#include "viewer/ui/list_pictures.h"

#include <wx/brush.h>
#include <wx/graphics.h>
#include <wx/image.h>
#include <wx/pen.h>

#include <algorithm>
#include <functional>
#include <initializer_list>
#include <memory>

namespace qvl {
namespace {

// Every picture is drawn on a field of 16 by 16 units.
constexpr double kUnits = 16;
using Drawing = std::function<void(wxGraphicsContext&)>;

wxBitmap Draw(const Drawing& drawing, int pixels) {
  wxImage image(pixels, pixels);
  image.InitAlpha();
  const auto bytes = static_cast<std::size_t>(pixels) * static_cast<std::size_t>(pixels);
  std::fill_n(image.GetAlpha(), bytes, static_cast<unsigned char>(0));
  {
    const std::unique_ptr<wxGraphicsContext> context(wxGraphicsContext::Create(image));
    if (context) {
      context->SetAntialiasMode(wxANTIALIAS_DEFAULT);
      context->Scale(pixels / kUnits, pixels / kUnits);
      drawing(*context);
    }  // the image takes the drawing when the context goes
  }
  return wxBitmap(image);
}

wxBitmapBundle Bundle(const Drawing& drawing, std::initializer_list<int> sizes) {
  wxVector<wxBitmap> bitmaps;
  for (const int pixels : sizes) bitmaps.push_back(Draw(drawing, pixels));
  return wxBitmapBundle::FromBitmaps(bitmaps);
}

struct Point {
  double x;
  double y;
};

wxGraphicsPath Polygon(wxGraphicsContext& context, std::initializer_list<Point> points,
                       bool closed = true) {
  wxGraphicsPath path = context.CreatePath();
  path.MoveToPoint(points.begin()->x, points.begin()->y);
  for (const Point& point : points) path.AddLineToPoint(point.x, point.y);
  if (closed) path.CloseSubpath();
  return path;
}

void Fill(wxGraphicsContext& context, const PictureColours& colours) {
  context.SetBrush(wxBrush(colours.inside));
  context.SetPen(context.CreatePen(wxGraphicsPenInfo(colours.edge, 1)));
}

void Stroke(wxGraphicsContext& context, const wxColour& colour, double width) {
  context.SetBrush(wxNullBrush);
  context.SetPen(context.CreatePen(wxGraphicsPenInfo(colour, width).Cap(wxCAP_ROUND)));
}

// Each of the four begins with its colours chosen.
void DrawCritical(wxGraphicsContext& context) {
  context.DrawPath(Polygon(
      context,
      {
          {5,    1.5 },
          {11,   1.5 },
          {14.5, 5   },
          {14.5, 11  },
          {11,   14.5},
          {5,    14.5},
          {1.5,  11  },
          {1.5,  5   }
  }));
  Stroke(context, *wxWHITE, 2);
  context.StrokeLine(5.3, 5.3, 10.7, 10.7);
  context.StrokeLine(10.7, 5.3, 5.3, 10.7);
}

void DrawCaution(wxGraphicsContext& context) {
  context.DrawPath(Polygon(context, {
                                        {8,  1.5 },
                                        {15, 14.5},
                                        {1,  14.5}
  }));
  Stroke(context, *wxBLACK, 1.8);
  context.StrokeLine(8, 6, 8, 9.8);
  context.StrokeLine(8, 12.2, 8, 12.3);
}

void DrawRepaired(wxGraphicsContext& context) {
  context.DrawEllipse(1.5, 1.5, 13, 13);
  Stroke(context, *wxWHITE, 2);
  context.StrokePath(Polygon(context,
                             {
                                 {4.8,  8.3 },
                                 {7.2,  10.8},
                                 {11.2, 5.6 }
  },
                             false));
}

void DrawOther(wxGraphicsContext& context) {
  context.DrawRoundedRectangle(1.5, 1.5, 13, 13, 2.5);
  Stroke(context, *wxWHITE, 2);
  context.StrokeLine(8, 7.6, 8, 11.6);
  context.StrokeLine(8, 4.5, 8, 4.6);
}

// A sheet with lines, the topmost one marked.
void DrawProgram(wxGraphicsContext& context) {
  Fill(context, {*wxWHITE, wxColour(60, 70, 90)});
  context.DrawRoundedRectangle(2.5, 1.5, 11, 13, 1.5);
  Stroke(context, wxColour(200, 30, 30), 1.6);
  context.StrokeLine(5, 4.8, 11, 4.8);
  Stroke(context, wxColour(90, 105, 130), 1.2);
  for (const double y : {7.4, 9.6, 11.8}) context.StrokeLine(5, y, 11, y);
}

}  // namespace

const std::array<PictureColours, kSeverityPictures>& SeverityColours() {
  static const std::array<PictureColours, kSeverityPictures> colours = {
      PictureColours{wxColour(200, 30,  30),  wxColour(130, 10, 10) },
      PictureColours{wxColour(250, 190, 30),  wxColour(140, 95, 0)  },
      PictureColours{wxColour(40,  145, 65),  wxColour(15,  90, 35) },
      PictureColours{wxColour(45,  100, 190), wxColour(20,  60, 130)}
  };
  return colours;
}

wxVector<wxBitmapBundle> ListPictures() {
  constexpr std::array<void (*)(wxGraphicsContext&), kSeverityPictures> kDrawings = {
      DrawCritical, DrawCaution, DrawRepaired, DrawOther};
  wxVector<wxBitmapBundle> pictures;
  for (std::size_t image = 0; image < kSeverityPictures; ++image) {
    const auto draw = [image, drawing = kDrawings[image]](wxGraphicsContext& context) {
      Fill(context, SeverityColours()[image]);
      drawing(context);
    };
    pictures.push_back(Bundle(draw, {16, 24, 32}));
  }
  return pictures;
}

wxBitmapBundle ProgramPicture() {
  return Bundle(DrawProgram, {16, 24, 32, 48, 64});
}

}  // namespace qvl
