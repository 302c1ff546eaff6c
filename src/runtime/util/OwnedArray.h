#pragma once

#include "runtime/util/QVArray.h"

/// An array of pointers that owns what it points to: however a block is left, its list goes with it.
template <class Element>
class OwnedArray : public QVArray<Element*, Element*> {
public:
    OwnedArray() = default;
    OwnedArray(const OwnedArray&) = delete;
    OwnedArray& operator=(const OwnedArray&) = delete;
    ~OwnedArray() { deleteElements(*this); }
};
