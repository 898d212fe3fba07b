// Mapping of whole files.
#include "core/disk/mapfile.h"

#include <fcntl.h>
#include <sys/mman.h>
#include <sys/stat.h>
#include <unistd.h>

#include "core/program/alert.h"
#include "core/records/mnw.h"

XMappedFile::XMappedFile(const char* inFileName, const unsigned char** MAP_add) {
    *MAP_add = inFileName && *inFileName ? retry(inFileName) : nullptr;
}

XMappedFile::~XMappedFile() { release(); }

void XMappedFile::release() {
    if (mBegin) munmap(const_cast<unsigned char*>(mBegin), size());
    if (mFile >= 0) close(mFile);
    mBegin = mEnd = nullptr;
    mFile = -1;
}

const unsigned char* XMappedFile::retry(const char* inFileName) {
    release();
    mFile = open(inFileName, O_RDONLY | O_CLOEXEC | O_NONBLOCK);  // a pipe must not hold up the load
    if (mFile < 0) return nullptr;
    struct stat file;
    // an empty file cannot be mapped; a folder or device counts as a file that is not there
    if (fstat(mFile, &file) != 0 || !S_ISREG(file.st_mode) || file.st_size == 0) {
        release();
        return nullptr;
    }
    const size_t bytes = static_cast<size_t>(file.st_size);
    void* first = mmap(nullptr, bytes, PROT_READ, MAP_PRIVATE, mFile, 0);
    if (first == MAP_FAILED) {
        release();
        MACIBM_alert(mnw.top_win, "mmap() returned null", inFileName, "", "", alert_message);
        return nullptr;
    }
    mBegin = static_cast<const unsigned char*>(first);
    mEnd = mBegin + bytes;
    return mBegin;
}
