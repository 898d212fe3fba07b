// A whole file mapped read-only into memory.
// Role: text tables and tiles are read in place, without a copy.
#pragma once
#include <cstddef>

class XMappedFile {
public:
    XMappedFile() = default;
    // Maps the file and stores its first byte, or null, through MAP_add. The name is in the platform's form.
    XMappedFile(const char* inFileName, const unsigned char** MAP_add);
    ~XMappedFile();
    XMappedFile(const XMappedFile&) = delete;
    XMappedFile& operator=(const XMappedFile&) = delete;

    // Lets go of what it held and maps another file; null when that cannot be opened or is empty.
    const unsigned char* retry(const char* inFileName);

    bool ok() const { return mBegin != nullptr; }
    const unsigned char* begin() const { return mBegin; }
    const unsigned char* end() const { return mEnd; }
    size_t size() const { return static_cast<size_t>(mEnd - mBegin); }

private:
    void release();

    const unsigned char* mBegin = nullptr;
    const unsigned char* mEnd = nullptr;
    int mFile = -1;
};
