// The keyboard's glyphs, each drawn on a field of 24 by 24 units.
#include "keyboard/glyphs.h"

#include <algorithm>
#include <initializer_list>
#include <numbers>

namespace sim {
namespace {

constexpr double field = 24;
constexpr double turn = 2 * std::numbers::pi;

/// A path under construction; shapes are added to it and then stroked or filled at once.
class Pen {
  public:
    explicit Pen(cairo_t* context) : context_(context) {
        cairo_set_line_join(context, CAIRO_LINE_JOIN_ROUND);
        cairo_set_line_cap(context, CAIRO_LINE_CAP_ROUND);
        cairo_set_line_width(context, 1.5);
    }

    Pen& lines(std::initializer_list<CGPoint> points) {
        cairo_new_sub_path(context_);
        for (CGPoint point : points) cairo_line_to(context_, point.x, point.y);
        return *this;
    }
    Pen& outline(std::initializer_list<CGPoint> points) {
        lines(points);
        cairo_close_path(context_);
        return *this;
    }
    /// From angle to angle in turns, clockwise, 0 to the right.
    Pen& arc(CGPoint centre, double radius, double from, double to) {
        cairo_new_sub_path(context_);
        cairo_arc(context_, centre.x, centre.y, radius, from * turn, to * turn);
        return *this;
    }
    Pen& circle(CGPoint centre, double radius) {
        arc(centre, radius, 0, 1);
        cairo_close_path(context_);
        return *this;
    }
    Pen& ellipse(CGPoint centre, double across, double down) {
        cairo_save(context_);
        cairo_translate(context_, centre.x, centre.y);
        cairo_scale(context_, across, down);
        circle({0, 0}, 1);
        cairo_restore(context_);
        return *this;
    }
    Pen& rounded(CGRect box, double radius) {
        const double left = box.origin.x, top = box.origin.y;
        const double right = left + box.size.width, bottom = top + box.size.height;
        cairo_new_sub_path(context_);
        cairo_arc(context_, right - radius, top + radius, radius, -turn / 4, 0);
        cairo_arc(context_, right - radius, bottom - radius, radius, 0, turn / 4);
        cairo_arc(context_, left + radius, bottom - radius, radius, turn / 4, turn / 2);
        cairo_arc(context_, left + radius, top + radius, radius, turn / 2, turn * 3 / 4);
        cairo_close_path(context_);
        return *this;
    }

    void stroke() { cairo_stroke(context_); }
    void fill() { cairo_fill(context_); }
    void fill_and_stroke() {
        cairo_fill_preserve(context_);
        cairo_stroke(context_);
    }

  private:
    cairo_t* context_;
};

Pen& shift_arrow(Pen& pen) {
    return pen.outline({{12, 3.5}, {20.5, 12.5}, {16, 12.5}, {16, 20}, {8, 20}, {8, 12.5}, {3.5, 12.5}});
}

void draw_backspace(Pen& pen) {
    pen.outline({{8.5, 5}, {22.5, 5}, {22.5, 19}, {8.5, 19}, {1.5, 12}});
    pen.lines({{12.2, 9.2}, {17.8, 14.8}}).lines({{17.8, 9.2}, {12.2, 14.8}}).stroke();
}

void draw_globe(Pen& pen) {
    pen.circle({12, 12}, 9.5).ellipse({12, 12}, 4.3, 9.5);
    pen.lines({{12, 2.5}, {12, 21.5}}).lines({{2.5, 12}, {21.5, 12}});
    pen.lines({{4, 7}, {20, 7}}).lines({{4, 17}, {20, 17}}).stroke();
}

void draw_microphone(Pen& pen) {
    pen.rounded({{8.8, 2}, {6.4, 12.4}}, 3.2).fill();
    pen.arc({12, 11.2}, 6.4, 0, 0.5).lines({{12, 17.6}, {12, 21.5}}).lines({{8, 21.5}, {16, 21.5}}).stroke();
}

void draw_recent(Pen& pen) { pen.circle({12, 12}, 9.5).lines({{12, 6}, {12, 12}, {16, 14.2}}).stroke(); }

void draw_smileys(Pen& pen) {
    pen.circle({12, 12}, 9.5).arc({12, 12.5}, 5.2, 0.06, 0.44).stroke();
    pen.circle({8.8, 9.3}, 1.3).circle({15.2, 9.3}, 1.3).fill();
}

void draw_animals(Pen& pen) {
    pen.ellipse({12, 16}, 5, 4.2).ellipse({5, 11}, 2, 2.7).ellipse({19, 11}, 2, 2.7);
    pen.ellipse({9, 6.4}, 2, 2.9).ellipse({15, 6.4}, 2, 2.9).fill();
}

void draw_food(Pen& pen) {
    pen.lines({{3, 10.5}, {5, 6.5}, {9, 4.5}, {15, 4.5}, {19, 6.5}, {21, 10.5}, {3, 10.5}});
    pen.lines({{2.5, 14}, {7, 14}, {9.5, 15.4}, {12, 14}, {21.5, 14}});
    pen.lines({{3.5, 17.5}, {20.5, 17.5}, {19, 20.5}, {5, 20.5}, {3.5, 17.5}}).stroke();
}

void draw_activities(Pen& pen) {
    pen.circle({12, 12}, 9.5).lines({{12, 2.5}, {12, 21.5}}).lines({{2.5, 12}, {21.5, 12}});
    pen.arc({2.5, 12}, 6.6, -0.13, 0.13).arc({21.5, 12}, 6.6, 0.37, 0.63).stroke();
}

void draw_travel(Pen& pen) {
    pen.lines({{5, 11}, {7, 5.5}, {17, 5.5}, {19, 11}}).rounded({{2.5, 11}, {19, 6.5}}, 2);
    pen.lines({{5, 17.5}, {5, 20}}).lines({{19, 17.5}, {19, 20}}).stroke();
    pen.circle({6.5, 14.2}, 1.2).circle({17.5, 14.2}, 1.2).fill();
}

void draw_objects(Pen& pen) {
    pen.arc({12, 9.2}, 6.8, 0.36, 1.14).lines({{9, 18}, {15, 18}}).lines({{10, 21}, {14, 21}});
    pen.lines({{7.8, 14.5}, {9, 18}}).lines({{16.2, 14.5}, {15, 18}}).stroke();
}

void draw_symbols(Pen& pen) {
    pen.lines({{4, 7}, {10, 7}}).lines({{7, 4}, {7, 10}}).lines({{14, 7}, {20, 7}});
    pen.lines({{4.8, 14.8}, {9.2, 19.2}})
        .lines({{9.2, 14.8}, {4.8, 19.2}})
        .lines({{14, 17}, {20, 17}})
        .stroke();
    pen.circle({17, 14}, 1).circle({17, 20}, 1).fill();
}

void draw_flags(Pen& pen) {
    pen.lines({{5, 2.5}, {5, 21.5}}).stroke();
    pen.outline({{5, 4}, {20, 4}, {16.5, 8.75}, {20, 13.5}, {5, 13.5}}).stroke();
}

void draw_on_field(Pen& pen, Glyph glyph) {
    switch (glyph) {
        case Glyph::shift: return shift_arrow(pen).stroke();
        case Glyph::shift_engaged: return shift_arrow(pen).fill_and_stroke();
        case Glyph::backspace: return draw_backspace(pen);
        case Glyph::globe: return draw_globe(pen);
        case Glyph::microphone: return draw_microphone(pen);
        case Glyph::check: return pen.lines({{4, 12.5}, {9.5, 18}, {20, 6.5}}).stroke();
        case Glyph::previous: return pen.lines({{5, 15}, {12, 8}, {19, 15}}).stroke();
        case Glyph::next: return pen.lines({{5, 9}, {12, 16}, {19, 9}}).stroke();
        case Glyph::recent: return draw_recent(pen);
        case Glyph::smileys: return draw_smileys(pen);
        case Glyph::animals: return draw_animals(pen);
        case Glyph::food: return draw_food(pen);
        case Glyph::activities: return draw_activities(pen);
        case Glyph::travel: return draw_travel(pen);
        case Glyph::objects: return draw_objects(pen);
        case Glyph::symbols: return draw_symbols(pen);
        case Glyph::flags: return draw_flags(pen);
    }
}

}  // namespace

void draw_glyph(cairo_t* context, Glyph glyph, CGRect box) {
    const double scale = std::min(box.size.width, box.size.height) / field;
    cairo_save(context);
    cairo_translate(context, box.origin.x + box.size.width / 2, box.origin.y + box.size.height / 2);
    cairo_scale(context, scale, scale);
    cairo_translate(context, -field / 2, -field / 2);
    Pen pen(context);
    draw_on_field(pen, glyph);
    cairo_restore(context);
}

}  // namespace sim
