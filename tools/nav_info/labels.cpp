// Names beside what they name: of a number of places around the sign the first that is free.
#include "labels.h"

#include <math.h>

bool labels::is_free(const box& b) const {
    if (!plan_frame.holds(b)) return false;
    for (const box& other : taken_)
        if (b.meets(other)) return false;
    return true;
}

double labels::cost(const box& b) const {
    constexpr double hopeless = 1e9;
    if (!is_free(b)) return hopeless;
    double sum = 0.0;
    for (const box& other : pavement_)
        if (b.meets(other)) sum += 1.0;
    return sum;
}

void labels::name(const point& at, double radius, const std::string& words, double size, unsigned rgb) {
    constexpr int around = 16;
    constexpr double gap = 4.0, beside_limit = 16.0, too_dear = 1e8;
    const double dx = on_.text_width(words, size), dy = 1.2 * size;
    double best = too_dear;
    box place{};
    double reach = 0.0;
    for (const double away : {gap, 18.0, 40.0, 70.0, 110.0})
        for (int i = 0; i < around; ++i) {
            const double angle = 2.0 * M_PI * i / around, c = cos(angle), s = sin(angle);
            const double out = radius + away;
            const box b = {at.x + out * c + 0.5 * dx * (c - 1.0), at.y - out * s - 0.5 * dy * (s + 1.0), dx,
                           dy};
            const double price = cost(b) + away / 20.0;
            if (price < best) best = price, place = b, reach = away;
        }
    if (best >= too_dear) {
        ++left_out_;
        return;
    }
    keep_free(place);
    const point middle = {place.x + 0.5 * place.dx, place.y + 0.5 * place.dy};
    if (reach > beside_limit) {
        on_.colour(rgb, 0.6);
        cairo_set_line_width(on_.pen(), 1.0);
        on_.move(at);
        on_.line(
            {fmin(fmax(at.x, place.x), place.x + place.dx), fmin(fmax(at.y, place.y), place.y + place.dy)});
        cairo_stroke(on_.pen());
    }
    on_.text(middle, 0.5, words, size, rgb, false, true);
}
