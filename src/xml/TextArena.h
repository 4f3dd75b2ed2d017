#ifndef TINDRA_SRC_XML_TEXTARENA_H
#define TINDRA_SRC_XML_TEXTARENA_H

#include <cstddef>
#include <memory>
#include <vector>

namespace Tindra {
namespace AutoCli {

// Zero-terminated copies of texts that live as long as the arena, taken from large chunks:
// a document has thousands of short texts.
class TextArena {
public:
    TextArena() = default;
    TextArena(TextArena const&) = delete;
    TextArena& operator=(TextArena const&) = delete;

    char const* Copy(char const* text, size_t length);
    // The copy last made, of lastLength characters, with more appended; grown in place when
    // its chunk has room.
    char const* Extend(char const* last, size_t lastLength, char const* more, size_t length);

private:
    char* Reserve(size_t size);

    static constexpr size_t kChunkSize = 16 * 1024;
    std::vector<std::unique_ptr<char[]>> chunks;
    char* unused = nullptr;  // in the last chunk
    size_t left = 0;
};

}  // namespace AutoCli
}  // namespace Tindra

#endif
