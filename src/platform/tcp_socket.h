// A TCP socket that never waits: its state is asked for, and reads and writes move what they can.
// Role: under the HTTP client. Independent of the simulation.
#pragma once
#include <netinet/in.h>

enum PCSB_Status : int {
    pcsbstatus_Ready = 1,  // a server stays so until somebody calls
    pcsbstatus_Connecting = 2,
    pcsbstatus_Connected = 3,
    pcsbstatus_Disconnected = 4,
    pcsbstatus_Error = 5,
};

// Addresses in network byte order, ports in the machine's own.
struct ConnectionData {
    unsigned long remote_ip = 0;
    unsigned short remote_port = 0;
    unsigned long local_ip = 0;
    unsigned short local_port = 0;
};

// Networking and the older transport have been started; PCSBSocket_start_once sets both.
extern int g_SOC_inited, g_OT_inited;
void PCSBSocket_start_once();

class PCSBSocket {
public:
    static bool StartupNetworking(bool inInitDLL);
    static void ShutdownNetworking(bool inCloseDLL);
    // Dotted text first, then the resolver, which may take its time; 0 when there is no such host.
    static unsigned long LookupAddress(const char* inAddress);

    // Port 0 lets the system choose.
    PCSBSocket(unsigned short inPort, bool inServer);
    // Takes over a descriptor that was accepted.
    explicit PCSBSocket(int inSocket);
    virtual ~PCSBSocket();
    PCSBSocket(const PCSBSocket&) = delete;
    PCSBSocket& operator=(const PCSBSocket&) = delete;

    // The caller of a server in connecting; null when it has gone again.
    PCSBSocket* Accept();
    void Connect(unsigned long inIP, unsigned short inPort);
    PCSB_Status GetStatus();
    // Bytes moved; 0 when nothing can move now; -1 after the state has become disconnected or error.
    long ReadData(void* outBuf, long inLength);
    long WriteData(const void* inBuf, long inLength);
    void Disconnect();
    // Ends the sending side; the other one stays open.
    void Release();
    void GetAddresses(ConnectionData* outData);

private:
    void open_at_port(unsigned short inPort);
    void serve();
    bool fail_if(bool failed);
    void poll_server();
    void poll_connecting();
    long failed_transfer();

    int mWinSocket = -1;
    sockaddr_in sIn{};
    ConnectionData dataStruct;
    PCSB_Status socketStatus = pcsbstatus_Ready;
    bool mReceivedRelease = false, mSentRelease = false;
    bool mIsAServer = false;
};
