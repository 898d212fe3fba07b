// One HTTP exchange, driven a little at a time from whatever loop calls it.
// Role: version file and weather reports. It never waits, but for the look-up of the host at its start.
// Bodies stay as they come (no chunks are joined) and redirections are not followed.
#pragma once
#include <memory>
#include <string>
#include <vector>

#include "platform/http_answer.h"
#include "platform/tcp_socket.h"

enum HTTPClient_Status : int {
    httpstatus_Connecting = 0,
    httpstatus_Requesting = 1,
    httpstatus_ReceivingHeaders = 2,
    httpstatus_ReceivingPayload = 3,
    httpstatus_Done = 4,  // the connection has ended, wherever the answer stood: see GotWhole
    httpstatus_Error = 5,
};

class HTTPClient {
public:
    // A null inDestFile keeps the body in memory. A file is written beside its place and takes it only as the whole
    // body of a good answer: whatever else comes leaves the file that was there.
    HTTPClient(const char* inServerIP, unsigned short inPort, const char* inURL, bool inIsPost,
               const FieldMap& inExtraFields, const char* inContentBuffer, int inContentBufferLength,
               const char* inDestFile);
    ~HTTPClient();

    void DoProcessing();  // one step: at most one write and one read of 1024 bytes
    HTTPClient_Status GetStatus();
    bool IsDone();
    float GetPercentDone() const;  // -1 while the length is unknown
    int GetResponseNum() const { return mAnswer.mResponseNum; }
    std::string GetResponseName() const { return mAnswer.mResponseName; }
    const FieldMap& GetFields() const { return mAnswer.mFields; }
    // The header and, if its length was told, the body have come to their end.
    bool GotWhole() const;

    // Copies out and removes what has arrived of a body in memory, up to the size; gives the number of
    // bytes. The vector ends with that size.
    int GetData(void* outBuffer, int inSize);
    int GetData(std::vector<char>& outBuffer, int inSize);

private:
    bool output_waits() const { return out_sent < mOutBuf.size(); }
    void send_waiting();
    void receive_waiting();
    void settle_file();

    std::unique_ptr<PCSBSocket> mSocket;  // none when the host was not found
    std::vector<char> mOutBuf;            // what remains to send, behind out_sent
    size_t out_sent = 0;
    std::string mDestFileName;  // as the system spells it; empty once the file is settled
    bool cannot_place = false;  // the file could not take its place
    http_answer mAnswer;
};
