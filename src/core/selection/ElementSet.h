#pragma once

#include <algorithm>
#include <cstddef>
#include <iterator>
#include <memory>
#include <vector>

namespace nalt {

/// An ordered set of the elements of a selection. It holds millions compactly, one more or less costs microseconds, and
/// copies are cheap: they share their pieces until one of them changes a piece.
///
/// `Element` has `before(a, b)`, a strict order, which finds two elements equal only if they are.
template <class Element>
class ElementSet {
public:
  class Iterator {
  public:
    using iterator_category = std::forward_iterator_tag;
    using value_type = Element;
    using difference_type = std::ptrdiff_t;
    using pointer = const Element*;
    using reference = const Element&;

    Iterator() = default;
    Iterator(const ElementSet& set, std::size_t piece) : set_(&set), piece_(piece) {}
    reference operator*() const { return (*set_->pieces_[piece_])[place_]; }
    pointer operator->() const { return &**this; }
    Iterator& operator++()
    {
      if (++place_ == set_->pieces_[piece_]->size()) {
        ++piece_;
        place_ = 0;
      }
      return *this;
    }
    Iterator operator++(int)
    {
      auto before = *this;
      ++*this;
      return before;
    }
    bool operator==(const Iterator& other) const { return piece_ == other.piece_ && place_ == other.place_; }

  private:
    const ElementSet* set_ = nullptr;
    std::size_t piece_ = 0;
    std::size_t place_ = 0;
  };

  Iterator begin() const { return {*this, 0}; }
  Iterator end() const { return {*this, pieces_.size()}; }
  std::size_t size() const { return size_; }
  bool empty() const { return size_ == 0; }

  bool contains(const Element& element) const
  {
    if (empty()) return false;
    const auto& piece = *pieces_[pieceFor(element)];
    const auto place = std::lower_bound(piece.begin(), piece.end(), element, Element::before);
    return place != piece.end() && !Element::before(element, *place);
  }

  /// True when the element is new. Those that come in order are put behind the others without a search.
  bool insert(const Element& element)
  {
    if (empty() || Element::before(pieces_.back()->back(), element)) {
      if (empty() || pieces_.back()->size() == pieceSize) addPiece();
      own(pieces_.size() - 1).push_back(element);
      ++size_;
      return true;
    }
    auto index = pieceFor(element);
    auto place = placeIn(*pieces_[index], element);
    if (place < pieces_[index]->size() && !Element::before(element, (*pieces_[index])[place])) return false;
    if (pieces_[index]->size() == pieceSize) {
      split(index);
      if (place > pieceSize / 2) {
        ++index;
        place -= pieceSize / 2;
      }
    }
    auto& piece = own(index);
    piece.insert(piece.begin() + static_cast<std::ptrdiff_t>(place), element);
    ++size_;
    return true;
  }

  /// True when the element was there.
  bool erase(const Element& element)
  {
    if (empty()) return false;
    const auto index = pieceFor(element);
    const auto place = placeIn(*pieces_[index], element);
    if (place == pieces_[index]->size() || Element::before(element, (*pieces_[index])[place])) return false;
    --size_;
    if (pieces_[index]->size() == 1) {
      pieces_.erase(pieces_.begin() + static_cast<std::ptrdiff_t>(index));
      return true;
    }
    auto& piece = own(index);
    piece.erase(piece.begin() + static_cast<std::ptrdiff_t>(place));
    return true;
  }

  void clear() { *this = {}; }

  /// All of `other` join.
  void add(const ElementSet& other)
  {
    if (empty()) {
      *this = other;
    } else if (isFew(other)) {
      for (const auto& element : other)
        insert(element);
    } else if (other.isFew(*this)) {
      auto whole = other;
      whole.add(*this);
      *this = std::move(whole);
    } else {
      *this = merged(other, {.mine = true, .both = true, .theirs = true});
    }
  }
  /// All of `other` leave.
  void subtract(const ElementSet& other)
  {
    if (isFew(other)) {
      for (const auto& element : other)
        erase(element);
    } else if (other.isFew(*this)) {
      eraseIf([&](const Element& element) { return other.contains(element); });
    } else {
      *this = merged(other, {.mine = true, .both = false, .theirs = false});
    }
  }
  /// Those of `other` that are here leave, the others join.
  void toggle(const ElementSet& other)
  {
    if (isFew(other)) {
      for (const auto& element : other) {
        if (!erase(element)) insert(element);
      }
    } else if (other.isFew(*this)) {
      auto whole = other;
      whole.toggle(*this);
      *this = std::move(whole);
    } else {
      *this = merged(other, {.mine = true, .both = false, .theirs = true});
    }
  }
  template <class Test>
  void eraseIf(const Test& test)
  {
    ElementSet kept;
    for (const auto& element : *this) {
      if (!test(element)) kept.insert(element);
    }
    if (kept.size() != size()) *this = std::move(kept);
  }

  bool operator==(const ElementSet& other) const
  {
    return size() == other.size() && std::equal(begin(), end(), other.begin(), [](const Element& a, const Element& b) {
             return !Element::before(a, b) && !Element::before(b, a);
           });
  }

private:
  using Piece = std::vector<Element>; // never empty, ascending
  static constexpr std::size_t pieceSize = 512;

  /// Below this share of the whole, elements are looked up one by one.
  bool isFew(const ElementSet& other) const { return other.size() < size() / 16; }

  /// The last piece that begins with the element or before it, else the first one.
  std::size_t pieceFor(const Element& element) const
  {
    const auto behind =
        std::upper_bound(pieces_.begin(), pieces_.end(), element, [](const Element& value, const auto& piece) {
          return Element::before(value, piece->front());
        });
    return behind == pieces_.begin() ? 0 : static_cast<std::size_t>(behind - pieces_.begin()) - 1;
  }
  static std::size_t placeIn(const Piece& piece, const Element& element)
  {
    return static_cast<std::size_t>(std::lower_bound(piece.begin(), piece.end(), element, Element::before) -
                                    piece.begin());
  }
  Piece& own(std::size_t index)
  {
    auto& piece = pieces_[index];
    if (piece.use_count() > 1) {
      auto copy = std::make_shared<Piece>();
      copy->reserve(pieceSize);
      copy->assign(piece->begin(), piece->end());
      piece = std::move(copy);
    }
    return *piece;
  }
  void addPiece()
  {
    // A single element is the most common selection.
    const auto room = pieces_.empty() ? 1 : pieceSize;
    pieces_.push_back(std::make_shared<Piece>());
    pieces_.back()->reserve(room);
  }
  void split(std::size_t index)
  {
    auto& first = own(index);
    auto second = std::make_shared<Piece>();
    second->reserve(pieceSize);
    const auto middle = first.begin() + static_cast<std::ptrdiff_t>(pieceSize / 2);
    second->assign(middle, first.end());
    first.erase(middle, first.end());
    pieces_.insert(pieces_.begin() + static_cast<std::ptrdiff_t>(index) + 1, std::move(second));
  }

  struct Kept {
    bool mine;
    bool both;
    bool theirs;
  };
  /// One walk through both sets.
  ElementSet merged(const ElementSet& other, Kept kept) const
  {
    ElementSet result;
    const auto take = [&](const Element& element, bool wanted) {
      if (wanted) result.insert(element);
    };
    auto mine = begin();
    auto theirs = other.begin();
    while (mine != end() && theirs != other.end()) {
      if (Element::before(*mine, *theirs)) {
        take(*mine++, kept.mine);
      } else if (Element::before(*theirs, *mine)) {
        take(*theirs++, kept.theirs);
      } else {
        take(*mine++, kept.both);
        ++theirs;
      }
    }
    while (kept.mine && mine != end())
      result.insert(*mine++);
    while (kept.theirs && theirs != other.end())
      result.insert(*theirs++);
    return result;
  }

  std::vector<std::shared_ptr<Piece>> pieces_;
  std::size_t size_ = 0;
};

} // namespace nalt
