#ifndef TINDRA_SRC_METAOBJ_NESTINGDEPTH_H
#define TINDRA_SRC_METAOBJ_NESTINGDEPTH_H

namespace Tindra {
namespace MetaObj {

// Counts the structures a comparison or printing walk of this thread is inside of. Documents
// cannot nest values anywhere near the limit; a value built deeper by code is refused with a
// message instead of exhausting the stack.
class NestingDepth {
public:
    static constexpr unsigned kLimit = 1000;

    NestingDepth() { ++Current(); }
    ~NestingDepth() { --Current(); }
    NestingDepth(NestingDepth const&) = delete;
    NestingDepth& operator=(NestingDepth const&) = delete;

    bool Exceeded() const { return Current() > kLimit; }

private:
    static unsigned& Current() {
        static thread_local unsigned depth = 0;
        return depth;
    }
};

}  // namespace MetaObj
}  // namespace Tindra

#endif
