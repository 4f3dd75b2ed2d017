#ifndef TINDRA_SRC_PLATFORM_FDINPUTBUFFER_H
#define TINDRA_SRC_PLATFORM_FDINPUTBUFFER_H

#include <array>
#include <streambuf>

namespace Tindra {
namespace Platform {

// A stream buffer that reads from a descriptor and remembers why a read failed: a stream
// reports the end of its input and a failed read alike, which would hide the failure.
class FdInputBuffer : public std::streambuf {
public:
    explicit FdInputBuffer(int fd) : fd(fd) {}
    FdInputBuffer(FdInputBuffer const&) = delete;
    FdInputBuffer& operator=(FdInputBuffer const&) = delete;

    // 0 unless a read failed; then its errno.
    int Error() const { return error; }

protected:
    int_type underflow() override;

private:
    int fd;
    int error = 0;
    std::array<char, 65536> buffer;
};

}  // namespace Platform
}  // namespace Tindra

#endif
