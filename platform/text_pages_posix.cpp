#include "platform/text_pages_posix.h"

#include <cairo-pdf.h>
#include <pango/pangocairo.h>

#include <algorithm>
#include <string>

namespace qvl {
namespace {

constexpr int kUnitsPerInch = 600;
constexpr double kPointsPerInch = 72.0;
constexpr double kHundredthsOfMillimetrePerInch = 2540.0;
constexpr double kFontPoints = 10.0;

struct Release {
  void operator()(cairo_t* cairo) const { cairo_destroy(cairo); }
  void operator()(cairo_surface_t* surface) const { cairo_surface_destroy(surface); }
  void operator()(cairo_font_options_t* options) const { cairo_font_options_destroy(options); }
  void operator()(PangoFontMap* fonts) const { g_object_unref(fonts); }
  void operator()(PangoContext* context) const { g_object_unref(context); }
  void operator()(PangoLayout* layout) const { g_object_unref(layout); }
  void operator()(PangoFontDescription* font) const { pango_font_description_free(font); }
  void operator()(PangoFontMetrics* metrics) const { pango_font_metrics_unref(metrics); }
  void operator()(char* text) const { g_free(text); }
};
template <typename T>
using Owned = std::unique_ptr<T, Release>;

double Points(int hundredthsOfMillimetre) {
  return hundredthsOfMillimetre / kHundredthsOfMillimetrePerInch * kPointsPerInch;
}

int Units(int hundredthsOfMillimetre) {
  return static_cast<int>(hundredthsOfMillimetre / kHundredthsOfMillimetrePerInch * kUnitsPerInch);
}

// Rounded up: what is laid out in whole units must not become wider than the page.
int WholeUnits(int pangoUnits) {
  return (pangoUnits + PANGO_SCALE - 1) / PANGO_SCALE;
}

cairo_status_t WriteTo(void* out, const unsigned char* bytes, unsigned int size) {
  return std::fwrite(bytes, 1, size, static_cast<std::FILE*>(out)) == size
             ? CAIRO_STATUS_SUCCESS
             : CAIRO_STATUS_WRITE_ERROR;
}

Owned<PangoContext> MakeContext() {
  const Owned<PangoFontMap> fonts(pango_cairo_font_map_new());
  Owned<PangoContext> context(pango_font_map_create_context(fonts.get()));
  // Rounding each character to a screen's pixels would add up over a line.
  const Owned<cairo_font_options_t> options(cairo_font_options_create());
  cairo_font_options_set_hint_metrics(options.get(), CAIRO_HINT_METRICS_OFF);
  cairo_font_options_set_hint_style(options.get(), CAIRO_HINT_STYLE_NONE);
  pango_cairo_context_set_font_options(context.get(), options.get());
  pango_context_set_round_glyph_positions(context.get(), FALSE);
  return context;
}

Owned<PangoFontDescription> MakeFont() {
  Owned<PangoFontDescription> font(pango_font_description_new());
  pango_font_description_set_family_static(font.get(), "monospace");
  pango_font_description_set_absolute_size(
      font.get(), kFontPoints / kPointsPerInch * kUnitsPerInch * PANGO_SCALE);
  return font;
}

}  // namespace

struct TextPages::Drawing {
  Drawing() : context(MakeContext()), font(MakeFont()), layout(pango_layout_new(context.get())) {
    pango_layout_set_font_description(layout.get(), font.get());
    // A line feed inside a text does not push it into the next line.
    pango_layout_set_single_paragraph_mode(layout.get(), TRUE);
  }

  Owned<PangoContext> context;
  Owned<PangoFontDescription> font;
  Owned<PangoLayout> layout;
  Owned<cairo_surface_t> surface;
  Owned<cairo_t> cairo;
};

TextPages::TextPages(const Paper& paper) : paper_(paper), drawing_(std::make_unique<Drawing>()) {}

// An unfinished document still writes when it goes.
TextPages::~TextPages() = default;

PrinterMetrics TextPages::Metrics() const {
  const Owned<PangoFontMetrics> metrics(
      pango_context_get_metrics(drawing_->context.get(), drawing_->font.get(), nullptr));
  const int textHeight =
      pango_font_metrics_get_ascent(metrics.get()) + pango_font_metrics_get_descent(metrics.get());
  const int leading = pango_font_metrics_get_height(metrics.get()) - textHeight;
  return {.horizontalResolution = Units(paper_.width - paper_.left - paper_.right),
          .verticalResolution = Units(paper_.length - paper_.top - paper_.bottom),
          .fontHeight = WholeUnits(textHeight),
          .externalLeading = WholeUnits(std::max(0, leading)),
          .averageCharacterWidth =
              WholeUnits(pango_font_metrics_get_approximate_char_width(metrics.get()))};
}

bool TextPages::Start(std::string_view title, std::FILE* out) {
  Drawing& drawing = *drawing_;
  drawing.surface.reset(cairo_pdf_surface_create_for_stream(WriteTo, out, Points(paper_.width),
                                                            Points(paper_.length)));
  cairo_pdf_surface_set_metadata(drawing.surface.get(), CAIRO_PDF_METADATA_TITLE,
                                 std::string(title).c_str());
  drawing.cairo.reset(cairo_create(drawing.surface.get()));
  cairo_translate(drawing.cairo.get(), Points(paper_.left), Points(paper_.top));
  constexpr double kPointsPerUnit = kPointsPerInch / kUnitsPerInch;
  cairo_scale(drawing.cairo.get(), kPointsPerUnit, kPointsPerUnit);
  return cairo_status(drawing.cairo.get()) == CAIRO_STATUS_SUCCESS;
}

void TextPages::DrawLine(int x, int y, std::string_view text) {
  // Blanks leave nothing on paper, and a page has many lines of them.
  if (text.find_first_not_of(' ') == std::string_view::npos) return;
  const Owned<char> valid(g_utf8_make_valid(text.data(), static_cast<gssize>(text.size())));
  pango_layout_set_text(drawing_->layout.get(), valid.get(), -1);
  cairo_move_to(drawing_->cairo.get(), x, y);
  pango_cairo_show_layout(drawing_->cairo.get(), drawing_->layout.get());
}

void TextPages::EndPage() {
  cairo_show_page(drawing_->cairo.get());
}

bool TextPages::Finish() {
  const bool drawn = cairo_status(drawing_->cairo.get()) == CAIRO_STATUS_SUCCESS;
  drawing_->cairo.reset();
  cairo_surface_finish(drawing_->surface.get());
  const bool written = cairo_surface_status(drawing_->surface.get()) == CAIRO_STATUS_SUCCESS;
  drawing_->surface.reset();
  return drawn && written;
}

}  // namespace qvl
