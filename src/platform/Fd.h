#ifndef TINDRA_SRC_PLATFORM_FD_H
#define TINDRA_SRC_PLATFORM_FD_H

namespace Tindra {
namespace Platform {

// Owns one file descriptor and closes it when it goes, unless it was closed before.
class UniqueFd {
public:
    UniqueFd() = default;
    explicit UniqueFd(int fd) : fd(fd) {}
    UniqueFd(UniqueFd&& other) noexcept : fd(other.Release()) {}
    UniqueFd& operator=(UniqueFd&& other) noexcept;
    UniqueFd(UniqueFd const&) = delete;
    UniqueFd& operator=(UniqueFd const&) = delete;
    ~UniqueFd() { Close(); }

    int Get() const { return fd; }
    bool IsOpen() const { return fd >= 0; }
    int Release();
    void Reset(int newFd);
    // Closes at once and forgets the descriptor, so it is never closed twice.
    void Close();
    // 0, or the errno of the failing fcntl.
    int SetNonBlocking();

private:
    int fd = -1;
};

}  // namespace Platform
}  // namespace Tindra

#endif
