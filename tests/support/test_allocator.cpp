#include "support/test_allocator.h"

#include <cstdlib>
#include <mutex>
#include <unordered_set>

#include "QELMemory.h"

namespace testalloc {

namespace {

struct State {
    std::mutex lock;
    std::vector<std::uint32_t> sizes;
    std::unordered_set<void*> blocks;
    std::size_t frees = 0, fail_at = 0, fail_from = 0;
};

State& state()
{
    static State* s = new State;   // never destroyed: frees may run at exit
    return *s;
}

// Runs f on the state under its lock.
template <class F>
auto locked(F f)
{
    std::lock_guard<std::mutex> g(state().lock);
    return f(state());
}

}  // namespace

void reset()
{
    locked([](State& s) {
        s.sizes.clear();
        s.frees = s.fail_at = s.fail_from = 0;
    });
}

std::vector<std::uint32_t> requests() { return locked([](State& s) { return s.sizes; }); }
std::size_t live() { return locked([](State& s) { return s.blocks.size(); }); }
std::size_t frees() { return locked([](State& s) { return s.frees; }); }
void fail_at(std::size_t k) { locked([k](State& s) { s.fail_at = k; }); }
void fail_from(std::size_t k) { locked([k](State& s) { s.fail_from = k; }); }

Scope::Scope() : live_at_start_(live()) { reset(); }
Scope::~Scope() { reset(); }
std::size_t Scope::leaked() const
{
    const std::size_t now = live();
    return now > live_at_start_ ? now - live_at_start_ : 0;
}

}  // namespace testalloc

extern "C" void* mem_malloc(uint32_t size)
{
    return testalloc::locked([size](testalloc::State& s) -> void* {
        s.sizes.push_back(size);
        const std::size_t k = s.sizes.size();
        if (k == s.fail_at || (s.fail_from != 0 && k >= s.fail_from)) return nullptr;
        // Zero-byte requests still get a distinct block, as the real library's do.
        void* p = std::malloc(size == 0 ? 1u : size);
        if (p) s.blocks.insert(p);
        return p;
    });
}

extern "C" void mem_free(void* p)
{
    testalloc::locked([p](testalloc::State& s) {
        ++s.frees;
        if (!p) return;
        // A pointer this allocator never handed out is a bug in the caller;
        // make it loud rather than corrupting the heap.
        if (s.blocks.erase(p) == 0) std::abort();
        std::free(p);
    });
}
