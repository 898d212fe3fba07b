// The exchange: request, then whatever the server answers.
#include "platform/http_client.h"

#include <stdio.h>
#include <unistd.h>

#include <algorithm>

#include "core/disk/paths.h"

namespace {
std::string beside(const std::string& path) { return path + ".part"; }

std::string request_text(const char* url, bool is_post, const FieldMap& fields, int content_length) {
    std::string text = std::string(is_post ? "POST " : "GET ") + url + " HTTP/1.1\r\n";
    for (const auto& [name, value] : fields) text.append(name).append(": ").append(value).append("\r\n");
    if (content_length > 0) text += "Content-Length: " + std::to_string(content_length) + "\r\n";
    return text + "\r\n";
}
}  // namespace

HTTPClient::HTTPClient(const char* inServerIP, unsigned short inPort, const char* inURL, bool inIsPost,
                       const FieldMap& inExtraFields, const char* inContentBuffer, int inContentBufferLength,
                       const char* inDestFile)
    : mDestFileName(inDestFile ? set_dir_chars(inDestFile) : ""),
      mAnswer(inDestFile ? beside(mDestFileName).c_str() : nullptr) {
    const unsigned long address = PCSBSocket::LookupAddress(inServerIP);
    if (address == 0) {
        mAnswer.mResponseNum = -1;
        return;
    }
    const int content = inContentBuffer ? std::max(inContentBufferLength, 0) : 0;
    const std::string text = request_text(inURL, inIsPost, inExtraFields, content);
    mOutBuf.assign(text.begin(), text.end());
    if (content > 0) mOutBuf.insert(mOutBuf.end(), inContentBuffer, inContentBuffer + content);
    mSocket = std::make_unique<PCSBSocket>(static_cast<unsigned short>(0), false);
    mSocket->Connect(address, inPort);
}

HTTPClient::~HTTPClient() {
    mAnswer.CloseFile();
    if (!mDestFileName.empty()) unlink(beside(mDestFileName).c_str());
}

void HTTPClient::DoProcessing() {
    if (!mSocket) return;
    if (mSocket->GetStatus() == pcsbstatus_Connected) {
        send_waiting();
        receive_waiting();
    }
    // at once, so that whoever sees the end finds the whole file
    if (IsDone()) settle_file();
}

void HTTPClient::settle_file() {
    mAnswer.CloseFile();
    if (mDestFileName.empty()) return;
    const bool good_number = mAnswer.mResponseNum >= 200 && mAnswer.mResponseNum <= 300;
    const std::string written = beside(mDestFileName);
    if (GetStatus() == httpstatus_Done && good_number && GotWhole())
        cannot_place = rename(written.c_str(), mDestFileName.c_str()) != 0;
    else
        unlink(written.c_str());
    mDestFileName.clear();
}

void HTTPClient::send_waiting() {
    if (!output_waits()) return;
    const long n =
        mSocket->WriteData(mOutBuf.data() + out_sent, static_cast<long>(mOutBuf.size() - out_sent));
    if (n <= 0) return;
    out_sent += static_cast<size_t>(n);
    if (output_waits()) return;
    mOutBuf.clear();
    out_sent = 0;
    mSocket->Release();
}

void HTTPClient::receive_waiting() {
    constexpr long read_size = 1024;
    char part[read_size];
    const long n = mSocket->ReadData(part, read_size);
    if (n <= 0) return;
    mAnswer.Take(part, static_cast<size_t>(n));
    if (mAnswer.complete() || mAnswer.mFailed) mSocket->Disconnect();
}

HTTPClient_Status HTTPClient::GetStatus() {
    if (!mSocket || mAnswer.mFailed || cannot_place) return httpstatus_Error;
    switch (mSocket->GetStatus()) {
        case pcsbstatus_Error:
            return httpstatus_Error;
        case pcsbstatus_Disconnected:
            return httpstatus_Done;
        case pcsbstatus_Connected:
            break;
        default:
            return httpstatus_Connecting;
    }
    if (output_waits()) return httpstatus_Requesting;
    return mAnswer.mGotWholeHeader ? httpstatus_ReceivingPayload : httpstatus_ReceivingHeaders;
}

bool HTTPClient::IsDone() {
    const HTTPClient_Status status = GetStatus();
    return status == httpstatus_Done || status == httpstatus_Error;
}

float HTTPClient::GetPercentDone() const {
    if (mAnswer.mIncomingLength < 0) return -1.0f;
    if (mAnswer.mIncomingLength == 0) return 100.0f;
    return 100.0f * static_cast<float>(mAnswer.mReceivedPayload) /
           static_cast<float>(mAnswer.mIncomingLength);
}

bool HTTPClient::GotWhole() const {
    return mAnswer.mGotWholeHeader && (mAnswer.mIncomingLength < 0 || mAnswer.complete());
}

int HTTPClient::GetData(void* outBuffer, int inSize) {
    return static_cast<int>(mAnswer.GetData(outBuffer, static_cast<size_t>(std::max(inSize, 0))));
}

int HTTPClient::GetData(std::vector<char>& outBuffer, int inSize) {
    outBuffer.resize(std::min(static_cast<size_t>(std::max(inSize, 0)), mAnswer.waiting()));
    const int count = GetData(outBuffer.data(), static_cast<int>(outBuffer.size()));
    outBuffer.resize(static_cast<size_t>(count));
    return count;
}
