// Labels, wrapping and numbers: any bytes reach them through names, messages and files.
#include "draw/type.h"
#include "draw/widgets/frames.h"
#include "draw/widgets/menus.h"
#include "support.h"

using fuzzing::must;

void fuzz_label(fuzzing::input& in) {
    const float value = in.value<float>();
    const int dig = in.value<int8_t>(), dec = in.value<int8_t>();
    const float dx = static_cast<float>(in.word()) / 64.0f;
    const std::string text = in.text();

    const number_layout n = lay_out_number(value, dig, dec);
    must(n.count >= 0 && n.count <= static_cast<int>(std::size(n.glyph)));
    for (int i = 0; i < n.count; ++i) must(n.glyph[i].c >= 32 && n.glyph[i].c <= 124);

    const label_parts parts = label0to12h(text);
    must(parts.left.size() + parts.right.size() + parts.help.size() <= text.size());
    for (int side = side_left_of; side <= side_right_of; ++side) {
        const label_lines lines = split_label(text, side);
        must(lines.first.size() + lines.second.size() <= text.size());
    }
    const item_text item = split_hint(text);
    must(item.name.size() + item.hint.size() <= text.size());
    const int lines = wrapped_lines(text, dx);
    must(lines >= 1 && lines <= static_cast<int>(text.size()) + 1);
    must(str_dx(text) >= 0.0f);
}
