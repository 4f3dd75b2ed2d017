#ifndef TINDRA_SRC_AUTOCLI_FORMATTERS_OUTPUTBUFFER_H
#define TINDRA_SRC_AUTOCLI_FORMATTERS_OUTPUTBUFFER_H

#include <cstddef>
#include <ostream>
#include <string>
#include <string_view>

namespace Tindra {
namespace AutoCli {

// Collects the small pieces a formatter writes (a tag, an indent, one escaped run) and hands
// them to the stream in large blocks: one stream operation costs more than most pieces, and
// an output may hold millions of them. What is still held goes out on Flush and at the end.
class OutputBuffer {
public:
    static constexpr size_t kBlockSize = 64 * 1024;

    explicit OutputBuffer(std::ostream& out);
    ~OutputBuffer();
    OutputBuffer(OutputBuffer const&) = delete;
    OutputBuffer& operator=(OutputBuffer const&) = delete;

    void Append(char c) {
        if (block.size() == kBlockSize) {
            Flush();
        }
        block.push_back(c);
    }

    void Append(std::string_view text) {
        if (text.size() > kBlockSize - block.size()) {
            AppendLarge(text);
            return;
        }
        block.append(text);
    }

    void AppendSpaces(size_t count) {
        if (count > kBlockSize - block.size()) {
            AppendManySpaces(count);
            return;
        }
        block.append(count, ' ');
    }

    void AppendInteger(long value);
    void Flush();

private:
    void AppendLarge(std::string_view text);
    void AppendManySpaces(size_t count);

    std::ostream& out;
    // Reserved, not filled: a short output touches only the memory it uses.
    std::string block;
};

}  // namespace AutoCli
}  // namespace Tindra

#endif
