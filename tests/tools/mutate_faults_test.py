"""The faults that tools/mutate plants, against those of a few lines worked out by hand."""
import sys
import tempfile
from pathlib import Path

sys.dont_write_bytecode = True
sys.path.insert(0, sys.argv[1])
from mutate_faults import draw, faults_of_file  # noqa: E402

SOURCE = r'''// a < b
#include "x.h"
static_assert(sizeof(int) == 4, "1 + 1");
void declared(float x, int left);
    const char* text = "-1 + x /* no */";  // 2 * 3
    if (a < b && !c) d = -e;
    half = 1'000 * v[0];
    float sizes[4];
    turn(x.lat, -1.5f);
    stop();
    return 7;
    char c = '"'; int n = R"(a + b)"[0];
'''
EXPECTED = {
    6: {"if (a >= b && !c) d = -e;", "if (a < b || !c) d = -e;", "if (a < b && c) d = -e;", "if (a < b && !c) d = e;",
        "if (a < b && !c) ;"},
    7: {"half = (2 * 1'000) * v[0];", "half = 1'000 / v[0];", "half = 1'000 * v[1];", ";"},
    9: {"turn(-1.5f, x.lat);", "turn(y.lat, -1.5f);", "turn(x.lon, -1.5f);", "turn(x.lat, 1.5f);",
        "turn(x.lat, -(2 * 1.5f));", ";"},
    10: {";"},
    11: {"return (2 * 7);"},
    12: {"char c = '\"'; int n = R\"(a + b)\"[1];"},
}

with tempfile.TemporaryDirectory() as folder:
    root = Path(folder)
    (root / "a.cpp").write_text(SOURCE, encoding="utf-8")
    found = {line: {fault.after.strip() for fault in faults} for line, faults in faults_of_file(root, "a.cpp").items()}
    assert found == EXPECTED, found

    once, again = draw(root, ["a.cpp"], 3, 1), draw(root, ["a.cpp"], 3, 1)
    assert once == again
    assert [sorted({fault.line for fault in part}) for part in once] == [[6, 7], [9, 10], [11, 12]], once
    assert draw(root, ["a.cpp"], 3, 2) != once
    assert len(draw(root, ["a.cpp"], None, 1)) == sum(map(len, EXPECTED.values()))
