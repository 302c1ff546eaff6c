#include "runtime/util/OwnedArray.h"

#include <gtest/gtest.h>

#include <memory>

namespace {

TEST(OwnedArray, TakesItsElementsWithIt) {
    const auto counted = std::make_shared<int>(7);
    {
        OwnedArray<std::shared_ptr<int>> array;
        array.Add(new std::shared_ptr<int>(counted));
        array.Add(nullptr);
        array.Add(new std::shared_ptr<int>(counted));
        EXPECT_EQ(counted.use_count(), 3);
        EXPECT_EQ(array.GetSize(), 3);
    }
    EXPECT_EQ(counted.use_count(), 1);
}

TEST(OwnedArray, IsEmptiedBeforeItsEnd) {
    const auto counted = std::make_shared<int>(7);
    OwnedArray<std::shared_ptr<int>> array;
    array.Add(new std::shared_ptr<int>(counted));
    deleteElements(array);
    EXPECT_EQ(counted.use_count(), 1);
    EXPECT_EQ(array.GetSize(), 0);
}

}  // namespace
