#include "runtime/util/QVArray.h"

#include <gtest/gtest.h>

namespace {

struct Noted {
    explicit Noted(int number, std::vector<int>& order) : m_number(number), m_order(order) {}
    ~Noted() { m_order.push_back(m_number); }
    Noted(const Noted&) = delete;
    Noted& operator=(const Noted&) = delete;

private:
    int m_number;
    std::vector<int>& m_order;
};

TEST(QVArray, GrowsAtItsEnd) {
    QVArray<int> array;
    array.Add(1);
    array.Add(2);
    EXPECT_EQ(array.GetSize(), 2);
    EXPECT_EQ(array[0], 1);
    EXPECT_EQ(array.GetAt(1), 2);
    array.SetAt(1, 3);
    EXPECT_EQ(array[1], 3);
}

TEST(QVArray, AnIndexOutsideIsAnInvalidArgument) {
    QVArray<int> array;
    EXPECT_THROW(array.GetAt(0), QVInvalidArgument);
    array.Add(1);
    EXPECT_THROW(array.GetAt(-1), QVInvalidArgument);
    EXPECT_THROW(array[1], QVInvalidArgument);
    EXPECT_THROW(array.SetAt(1, 0), QVInvalidArgument);
    EXPECT_THROW(array.SetSize(-1), QVInvalidArgument);
}

TEST(QVArray, SetSizeCutsAndFills) {
    QVArray<int> array;
    array.SetSize(3, 10);
    EXPECT_EQ(array.GetSize(), 3);
    EXPECT_EQ(array[2], 0);
    array.SetSize(0, -1);
    EXPECT_EQ(array.GetSize(), 0);
}

TEST(QVArray, ElementsAreDeletedInIndexOrder) {
    std::vector<int> order;
    QVArray<Noted*, Noted*> array;
    for (int i = 0; i < 3; ++i)
        array.Add(new Noted(i, order));
    array.Add(nullptr);
    deleteElements(array);
    EXPECT_EQ(order, (std::vector<int>{0, 1, 2}));
    EXPECT_EQ(array.GetSize(), 0);
}

}  // namespace
