#pragma once

/// The runtime's growable array.

#include <stdexcept>
#include <vector>

/// Thrown for an index outside an array; none of the program's handlers is for it.
class QVInvalidArgument : public std::invalid_argument {
public:
    QVInvalidArgument() : std::invalid_argument("index outside the array") {}
};

/// Elements in order, by index from 0. An array of pointers does not own what they point to.
template <class Element, class Argument = Element>
class QVArray {
public:
    int GetSize() const { return static_cast<int>(m_elements.size()); }

    /// Throws `QVInvalidArgument` for an index outside the array.
    const Element& GetAt(int index) const {
        if (index < 0 || index >= GetSize()) throw QVInvalidArgument();
        return m_elements[static_cast<std::size_t>(index)];
    }
    const Element& operator[](int index) const { return GetAt(index); }

    void SetAt(int index, Argument element) {
        GetAt(index);
        m_elements[static_cast<std::size_t>(index)] = std::move(element);
    }
    void Add(Argument element) { m_elements.push_back(std::move(element)); }

    /// Cuts the array to `size` elements or fills it up with empty ones; `growBy` -1: as the array grows
    /// anyway.
    void SetSize(int size, int growBy = -1) {
        if (size < 0) throw QVInvalidArgument();
        if (growBy > 0) m_elements.reserve(static_cast<std::size_t>(size) + static_cast<std::size_t>(growBy));
        m_elements.resize(static_cast<std::size_t>(size));
        if (size == 0) std::vector<Element>().swap(m_elements);
    }

private:
    std::vector<Element> m_elements;
};

/// Deletes every element that is not null, in index order, and empties the array.
template <class Element>
void deleteElements(QVArray<Element*, Element*>& list) {
    for (int i = 0; i < list.GetSize(); ++i)
        delete list[i];
    list.SetSize(0, -1);
}
