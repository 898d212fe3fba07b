// Reading an answer as its bytes come.
#include "platform/http_answer.h"

#include <string.h>
#include <strings.h>

#include <algorithm>
#include <charconv>

#include "core/disk/paths.h"

namespace {
// Digits at the start of the text; 0 without any.
int leading_number(std::string_view text) {
    int number = 0;
    for (const char c : text) {
        if (c < '0' || c > '9') break;
        number = 10 * number + (c - '0');
    }
    return number;
}

// -1 for a length that is no whole number from 0 up to what an int holds.
int body_length(std::string_view text) {
    while (!text.empty() && text.back() == ' ') text.remove_suffix(1);
    while (!text.empty() && text.front() == ' ') text.remove_prefix(1);
    int length = -1;
    const auto [stop, fault] = std::from_chars(text.data(), text.data() + text.size(), length);
    return fault == std::errc() && stop == text.data() + text.size() && length >= 0 ? length : -1;
}

int told_length(const FieldMap& fields) {
    for (const auto& [name, value] : fields) {
        if (strcasecmp(name.c_str(), "Content-Length") != 0) continue;
        const int length = body_length(value);
        if (length >= 0) return length;
    }
    return -1;
}
}  // namespace

http_answer::http_answer(const char* inDestFile) : mDestFileName(inDestFile ? inDestFile : "") {}

http_answer::~http_answer() { CloseFile(); }

void http_answer::Take(const void* bytes, size_t count) {
    if (mFailed || complete()) return;
    const char* const first = static_cast<const char*>(bytes);
    mInBuf.insert(mInBuf.end(), first, first + count);
    ParseMore();
}

void http_answer::ParseMore() {
    if (!mGotWholeHeader) read_header();
    if (mGotWholeHeader && !mFailed) read_body();
}

// Moves the start on; the bytes in front go when they are the larger part, so that each is moved at most
// once on the average.
void http_answer::consume(size_t count) {
    in_start += count;
    if (2 * in_start < mInBuf.size()) return;
    mInBuf.erase(mInBuf.begin(), mInBuf.begin() + static_cast<ptrdiff_t>(in_start));
    scanned -= std::min(scanned, in_start);
    in_start = 0;
}

// -- header
void http_answer::read_header() {
    std::string_view line;
    while (!mGotWholeHeader && next_line(&line)) {
        const size_t size = line.size() + 2;
        // an interim answer ends with an empty line too, and the header goes on
        if (!line.empty())
            read_line(line);
        else if (mResponseNum >= 200)
            mGotWholeHeader = true;
        header_taken += size;
        consume(size);
    }
    if (mGotWholeHeader)
        start_body();
    else
        mFailed = header_taken + waiting() >= http_header_max;
}

// The text before the next line end, which lies at the start; false when none has arrived.
bool http_answer::next_line(std::string_view* line) {
    const size_t end = std::min(mInBuf.size(), in_start + (http_header_max - header_taken));
    scanned = std::max(scanned, in_start);
    while (scanned < end) {
        const char* const all = mInBuf.data();
        const void* const found = memchr(all + scanned, '\n', end - scanned);
        if (!found) break;
        const size_t at = static_cast<size_t>(static_cast<const char*>(found) - all);
        scanned = at + 1;
        if (at == in_start || all[at - 1] != '\r') continue;
        *line = {all + in_start, at - 1 - in_start};
        return true;
    }
    scanned = end;
    return false;
}

void http_answer::read_line(std::string_view line) {
    if (line.substr(0, 5) == "HTTP/") read_status_line(line);
    const size_t colon = line.find(": ");
    if (colon != std::string_view::npos) mFields[std::string(line.substr(0, colon))] = line.substr(colon + 2);
}

// "HTTP/1.1 200 OK": any part of it may be missing.
void http_answer::read_status_line(std::string_view line) {
    constexpr size_t code_at = 9, code_size = 3, name_at = 13;
    mResponseNum = line.size() > code_at ? leading_number(line.substr(code_at, code_size)) : 0;
    mResponseName = line.size() > name_at ? line.substr(name_at) : "";
}

// -- body
void http_answer::start_body() {
    mIncomingLength = told_length(mFields);
    if (mDestFileName.empty()) return;
    mDestFile = fopen(set_dir_chars(mDestFileName).c_str(), "wb");
    mFailed = !mDestFile;
}

void http_answer::read_body() {
    const int most = mDestFile ? http_file_body_max : http_memory_body_max;
    size_t fresh = waiting() - counted;
    if (mIncomingLength >= 0)
        fresh = std::min(fresh, static_cast<size_t>(mIncomingLength - mReceivedPayload));
    if (fresh > static_cast<size_t>(most - mReceivedPayload)) {
        fresh = static_cast<size_t>(most - mReceivedPayload);
        mFailed = true;
    }
    mInBuf.resize(in_start + counted + fresh);
    if (mDestFile)
        write_body(fresh);
    else
        counted += fresh;
    mReceivedPayload += static_cast<int>(fresh);
}

void http_answer::write_body(size_t count) {
    if (fwrite(mInBuf.data() + in_start, 1, count, mDestFile) != count) mFailed = true;
    consume(count);
}

void http_answer::CloseFile() {
    if (!mDestFile) return;
    if (fclose(mDestFile) != 0) mFailed = true;
    mDestFile = nullptr;
}

size_t http_answer::GetData(void* outBuffer, size_t size) {
    if (!mGotWholeHeader) return 0;
    const size_t count = std::min(size, counted);
    if (count == 0) return 0;
    memcpy(outBuffer, mInBuf.data() + in_start, count);
    counted -= count;
    consume(count);
    return count;
}
