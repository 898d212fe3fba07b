// What a server has answered so far: header fields, then the body in memory or in a file.
// Role: the HTTP client's reader of hostile bytes; it knows no socket. However the bytes are split, the
// result is the same, and its memory is bounded.
#pragma once
#include <stddef.h>
#include <stdio.h>

#include <map>
#include <string>
#include <string_view>
#include <vector>

using FieldMap = std::map<std::string, std::string>;

constexpr size_t http_header_max = 64 * 1024;  // bytes of all headers of one answer; more is a failure
constexpr int http_memory_body_max = 16 * 1024 * 1024;
constexpr int http_file_body_max = 256 * 1024 * 1024;  // a server that never ends must not fill the disk

class http_answer {
public:
    explicit http_answer(const char* inDestFile);  // null keeps the body in memory
    ~http_answer();
    http_answer(const http_answer&) = delete;
    http_answer& operator=(const http_answer&) = delete;

    // Appends and reads on. What comes after the end or a failure is dropped.
    void Take(const void* bytes, size_t count);
    // Copies body bytes that have arrived and removes them.
    size_t GetData(void* outBuffer, size_t size);
    // A failure to write what is left counts as one of the answer.
    void CloseFile();

    // Reached the length that the header told.
    bool complete() const {
        return mGotWholeHeader && mIncomingLength >= 0 && mReceivedPayload >= mIncomingLength;
    }
    size_t waiting() const { return mInBuf.size() - in_start; }

    bool mGotWholeHeader = false;
    int mResponseNum = 0;  // -1 when the host could not be found
    std::string mResponseName;
    FieldMap mFields;
    int mIncomingLength = -1;  // -1 unknown
    int mReceivedPayload = 0;  // body bytes, also those that GetData has removed
    bool mFailed = false;      // too long, or the file cannot be written

private:
    void ParseMore();
    void read_header();
    bool next_line(std::string_view* line);
    void read_line(std::string_view line);
    void read_status_line(std::string_view line);
    void start_body();
    void read_body();
    void write_body(size_t count);
    void consume(size_t count);

    std::vector<char> mInBuf;  // arrived and not consumed, behind in_start
    size_t in_start = 0;       // consumed bytes still in front of it
    size_t scanned = 0;        // header: position up to which there is no line end
    size_t header_taken = 0;   // bytes of the lines before
    size_t counted = 0;        // body: waiting bytes that mReceivedPayload holds
    FILE* mDestFile = nullptr;
    std::string mDestFileName;
};
