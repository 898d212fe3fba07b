// Answers of a server: the first two bytes pick where the body goes and how the answer is split, the rest is
// the answer.
#include <algorithm>

#include "platform/http_answer.h"
#include "support.h"

namespace {
using fuzzing::must;

// Parts of pseudo-random sizes, from single bytes up.
void take_in_parts(http_answer& answer, const uint8_t* data, size_t size, uint8_t seed) {
    uint32_t state = seed;
    for (size_t at = 0; at < size;) {
        state = 1664525u * state + 1013904223u;
        const size_t part = std::min<size_t>(size - at, 1 + (state >> 24) % (1 + seed));
        answer.Take(data + at, part);
        at += part;
        must(answer.waiting() <= http_memory_body_max + size);
    }
}

std::vector<char> body_of(http_answer& answer) {
    std::vector<char> body(answer.waiting());
    const size_t count = answer.GetData(body.data(), body.size());
    must(answer.mFailed || !answer.mGotWholeHeader || count == body.size());
    body.resize(count);
    return body;
}

std::vector<char> bytes_of(const std::string& path) {
    std::ifstream in(path, std::ios::binary);
    const std::vector<char> bytes(std::istreambuf_iterator<char>(in), {});
    unlink(path.c_str());
    return bytes;
}

void check_limits(const http_answer& answer) {
    must(answer.mResponseNum >= 0 && answer.mResponseNum <= 999);
    must(answer.mIncomingLength >= -1 && answer.mReceivedPayload >= 0);
    must(answer.mReceivedPayload == 0 || answer.mGotWholeHeader);
    must(answer.mIncomingLength < 0 || answer.mReceivedPayload <= answer.mIncomingLength);
    if (!answer.mGotWholeHeader && !answer.mFailed) must(answer.waiting() < http_header_max);
}

void check_equal(const http_answer& a, const http_answer& b) {
    must(a.mGotWholeHeader == b.mGotWholeHeader && a.mFailed == b.mFailed);
    must(a.mResponseNum == b.mResponseNum && a.mResponseName == b.mResponseName && a.mFields == b.mFields);
    must(a.mIncomingLength == b.mIncomingLength && a.mReceivedPayload == b.mReceivedPayload);
}
}  // namespace

void fuzz_http(fuzzing::input& in) {
    static const fuzzing::folder folder;
    static const std::string whole_file = folder.path() + "whole", split_file = folder.path() + "split";
    const bool to_file = in.byte() & 1;
    const uint8_t seed = static_cast<uint8_t>(in.byte());
    http_answer whole(to_file ? whole_file.c_str() : nullptr);
    http_answer split(to_file ? split_file.c_str() : nullptr);
    whole.Take(in.data(), in.size());
    take_in_parts(split, in.data(), in.size(), seed);
    whole.CloseFile();
    split.CloseFile();
    check_limits(whole);
    check_equal(whole, split);

    const std::vector<char> body = to_file ? bytes_of(whole_file) : body_of(whole);
    must(body == (to_file ? bytes_of(split_file) : body_of(split)));
    if (!whole.mGotWholeHeader) return;
    must(body.size() == static_cast<size_t>(whole.mReceivedPayload));
    must(body.empty() || in.text().find(std::string(body.begin(), body.end())) != std::string::npos);
}
