// The shipped library as a user sees it: linked dynamically, memory from the
// real QELMemory.
#include <gtest/gtest.h>

#include "QELMath.h"

TEST(SharedLibrary, CallsResolveThroughTheExportedApi)
{
    double v[3] = {0, 3, 4};
    EXPECT_EQ(NormalizeVector(v), 1);
    EXPECT_EQ(v[1], 0.6000000000000001);
    EXPECT_EQ(v[2], 0.8);
}

TEST(SharedLibrary, MemoryLibraryHandsOutAndTakesBackBlocks)
{
    void* p = mem_malloc(0);
    ASSERT_NE(p, nullptr);
    mem_free(p);
    void* q = mem_malloc(64);
    ASSERT_NE(q, nullptr);
    static_cast<unsigned char*>(q)[63] = 1;
    mem_free(q);
    mem_free(nullptr);
}
