#ifndef TINDRA_SRC_PLATFORM_FDOUTPUTBUFFER_H
#define TINDRA_SRC_PLATFORM_FDOUTPUTBUFFER_H

#include <array>
#include <streambuf>

namespace Tindra {
namespace Platform {

// A stream buffer that writes to a descriptor and remembers why the first failed write failed,
// so that the program can tell its user instead of losing output silently. After a failure it
// accepts nothing more; the stream then stops writing.
class FdOutputBuffer : public std::streambuf {
public:
    explicit FdOutputBuffer(int fd);
    FdOutputBuffer(FdOutputBuffer const&) = delete;
    FdOutputBuffer& operator=(FdOutputBuffer const&) = delete;

    // 0 while every write succeeded, else the errno of the first failure.
    int Error() const { return error; }

protected:
    int_type overflow(int_type character) override;
    std::streamsize xsputn(char const* text, std::streamsize count) override;
    int sync() override;

private:
    bool WriteAll(char const* text, std::size_t count);
    bool Drain();

    int fd;
    int error = 0;
    std::array<char, 65536> buffer;
};

}  // namespace Platform
}  // namespace Tindra

#endif
