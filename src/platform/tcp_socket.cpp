// TCP sockets of the system, non-blocking.
#include "platform/tcp_socket.h"

#include <arpa/inet.h>
#include <errno.h>
#include <netdb.h>
#include <netinet/tcp.h>
#include <poll.h>
#include <stdio.h>
#include <string.h>
#include <sys/ioctl.h>
#include <sys/socket.h>
#include <unistd.h>

int g_SOC_inited = 0, g_OT_inited = 0;

namespace {
// Errors of a peer or a way that is gone; all others are faults of ours.
bool is_lost_connection(int err) {
    switch (err) {
        case ENOTCONN:
        case ECONNREFUSED:
        case ECONNRESET:
        case EHOSTUNREACH:
        case ENETDOWN:
        case ENETRESET:
        case ENETUNREACH:
        case ETIMEDOUT:
            return true;
        default:
            return false;
    }
}

sockaddr_in internet_address(unsigned long ip, unsigned short port) {
    sockaddr_in address{};
    address.sin_family = AF_INET;
    address.sin_addr.s_addr = static_cast<in_addr_t>(ip);
    address.sin_port = htons(port);
    return address;
}

bool set_nonblocking(int fd) {
    int on = 1;
    return ioctl(fd, FIONBIO, &on) == 0;
}

void set_nodelay(int fd, int port) {
    const int on = 1;
    if (setsockopt(fd, IPPROTO_TCP, TCP_NODELAY, &on, sizeof on) != 0)
        printf("-----------------------Could not set TCP_NODELAY on port %d-------------\n", port);
}

// What has happened to the descriptor by now; -1 when that cannot be told. Descriptors beyond the size of
// a select set are good here.
int events_now(int fd, short wanted) {
    pollfd ask{fd, wanted, 0};
    const int n = poll(&ask, 1, 0);
    if (n < 0) return errno == EINTR ? 0 : -1;
    return ask.revents & POLLNVAL ? -1 : ask.revents;
}
}  // namespace

void PCSBSocket_start_once() {
    if (g_SOC_inited) return;
    g_SOC_inited = g_OT_inited = PCSBSocket::StartupNetworking(true);
}

bool PCSBSocket::StartupNetworking(bool) { return true; }
void PCSBSocket::ShutdownNetworking(bool) {}

unsigned long PCSBSocket::LookupAddress(const char* inAddress) {
    constexpr size_t longest_name = 253;  // of the domain name system
    if (!inAddress || strnlen(inAddress, longest_name + 1) > longest_name) return 0;
    in_addr dotted;
    if (inet_pton(AF_INET, inAddress, &dotted) == 1) return dotted.s_addr;
    addrinfo wanted{};
    wanted.ai_family = AF_INET;
    wanted.ai_socktype = SOCK_STREAM;
    addrinfo* found = nullptr;
    if (getaddrinfo(inAddress, nullptr, &wanted, &found) != 0) return 0;
    sockaddr_in first;
    memcpy(&first, found->ai_addr, sizeof first);
    freeaddrinfo(found);
    return first.sin_addr.s_addr;
}

PCSBSocket::PCSBSocket(unsigned short inPort, bool inServer) : mIsAServer(inServer) {
    open_at_port(inPort);
    if (inServer && socketStatus != pcsbstatus_Error) serve();
}

PCSBSocket::PCSBSocket(int inSocket) : mWinSocket(inSocket), socketStatus(pcsbstatus_Connected) {
    if (fail_if(!set_nonblocking(mWinSocket))) return;
    GetAddresses(&dataStruct);
    set_nodelay(mWinSocket, dataStruct.local_port);
    sIn = internet_address(dataStruct.local_ip, dataStruct.local_port);
}

PCSBSocket::~PCSBSocket() {
    if (mWinSocket >= 0) close(mWinSocket);
}

bool PCSBSocket::fail_if(bool failed) {
    if (failed) socketStatus = pcsbstatus_Error;
    return failed;
}

void PCSBSocket::open_at_port(unsigned short inPort) {
    mWinSocket = socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0);
    if (fail_if(mWinSocket < 0)) return;
    set_nodelay(mWinSocket, inPort);
    sIn = internet_address(htonl(INADDR_ANY), inPort);
    if (fail_if(bind(mWinSocket, reinterpret_cast<const sockaddr*>(&sIn), sizeof sIn) != 0)) return;
    fail_if(!set_nonblocking(mWinSocket));
}

void PCSBSocket::serve() {
    constexpr int backlog = 128;
    if (fail_if(listen(mWinSocket, backlog) != 0)) printf("Could not enable listening!\n");
}

PCSBSocket* PCSBSocket::Accept() {
    const int caller = accept4(mWinSocket, nullptr, nullptr, SOCK_CLOEXEC);
    socketStatus = pcsbstatus_Ready;
    if (caller < 0) return nullptr;
    printf("Socket was accepted!\n");
    return new PCSBSocket(caller);
}

void PCSBSocket::Connect(unsigned long inIP, unsigned short inPort) {
    if (socketStatus == pcsbstatus_Error) return;
    dataStruct.remote_ip = inIP;
    dataStruct.remote_port = inPort;
    socketStatus = pcsbstatus_Connecting;
    const sockaddr_in peer = internet_address(inIP, inPort);
    if (connect(mWinSocket, reinterpret_cast<const sockaddr*>(&peer), sizeof peer) == 0)
        socketStatus = pcsbstatus_Connected;
    else
        fail_if(errno != EAGAIN && errno != EINPROGRESS);
}

PCSB_Status PCSBSocket::GetStatus() {
    if (mIsAServer && socketStatus == pcsbstatus_Ready)
        poll_server();
    else if (!mIsAServer && socketStatus == pcsbstatus_Connecting)
        poll_connecting();
    return socketStatus;
}

void PCSBSocket::poll_server() {
    const int events = events_now(mWinSocket, POLLIN);
    if (fail_if(events < 0)) return;
    if (events & POLLIN) socketStatus = pcsbstatus_Connecting;
}

void PCSBSocket::poll_connecting() {
    const int events = events_now(mWinSocket, POLLOUT);
    if (fail_if(events < 0) || events == 0) return;
    int err = 0;
    socklen_t size = sizeof err;
    const bool told = getsockopt(mWinSocket, SOL_SOCKET, SO_ERROR, &err, &size) == 0;
    const bool good = told && err == 0 && (events & POLLOUT) && !(events & POLLERR);
    socketStatus = good ? pcsbstatus_Connected : pcsbstatus_Disconnected;
}

long PCSBSocket::failed_transfer() {
    if (errno == EAGAIN || errno == EINTR) return 0;
    socketStatus = is_lost_connection(errno) ? pcsbstatus_Disconnected : pcsbstatus_Error;
    return -1;
}

long PCSBSocket::ReadData(void* outBuf, long inLength) {
    if (inLength <= 0) return 0;
    const ssize_t n = recv(mWinSocket, outBuf, static_cast<size_t>(inLength), 0);
    if (n > 0) return n;
    if (n < 0) return failed_transfer();
    mReceivedRelease = true;
    if (!mSentRelease) return 0;
    socketStatus = pcsbstatus_Disconnected;
    return -1;
}

long PCSBSocket::WriteData(const void* inBuf, long inLength) {
    if (inLength <= 0) return 0;
    // a peer that has gone is an answer, not a signal that ends the program
    const ssize_t n = send(mWinSocket, inBuf, static_cast<size_t>(inLength), MSG_NOSIGNAL);
    return n >= 0 ? n : failed_transfer();
}

void PCSBSocket::Disconnect() {
    if (mWinSocket >= 0) shutdown(mWinSocket, SHUT_RDWR);
    socketStatus = pcsbstatus_Disconnected;
}

void PCSBSocket::Release() {
    if (mWinSocket >= 0) shutdown(mWinSocket, SHUT_WR);
    mSentRelease = true;
}

void PCSBSocket::GetAddresses(ConnectionData* outData) {
    sockaddr_in end{};
    socklen_t size = sizeof end;
    if (getsockname(mWinSocket, reinterpret_cast<sockaddr*>(&end), &size) == 0) {
        dataStruct.local_ip = end.sin_addr.s_addr;
        dataStruct.local_port = ntohs(end.sin_port);
    }
    size = sizeof end;
    if (getpeername(mWinSocket, reinterpret_cast<sockaddr*>(&end), &size) == 0) {
        dataStruct.remote_ip = end.sin_addr.s_addr;
        dataStruct.remote_port = ntohs(end.sin_port);
    }
    *outData = dataStruct;
}
