#pragma once

#include <cstdint>
#include <initializer_list>

/// A set of the values of an enumeration, values 0 to 63, passed by value. Written as in the toolkit's
/// language: `Options << goEditing >> goTabs`, `Shift.Contains(ssCtrl)`.
template <class E>
class set_of
{
public:
    constexpr set_of() = default;
    constexpr set_of(std::initializer_list<E> values)
    {
        for (E const value : values)
            f_bits |= bit(value);
    }

    /// The set with `value` in it, or without it; the set itself is left alone.
    [[nodiscard]] constexpr set_of operator<<(E value) const { return from_bits(f_bits | bit(value)); }
    [[nodiscard]] constexpr set_of operator>>(E value) const { return from_bits(f_bits & ~bit(value)); }
    constexpr set_of &operator<<=(E value) { return *this = *this << value; }
    constexpr set_of &operator>>=(E value) { return *this = *this >> value; }
    constexpr set_of &Include(E value) { return *this <<= value; }
    constexpr set_of &Exclude(E value) { return *this >>= value; }
    [[nodiscard]] constexpr bool Contains(E value) const { return (f_bits & bit(value)) != 0; }
    [[nodiscard]] constexpr bool Empty() const { return f_bits == 0; }

    friend constexpr set_of operator+(set_of a, set_of b) { return from_bits(a.f_bits | b.f_bits); }
    friend constexpr set_of operator-(set_of a, set_of b) { return from_bits(a.f_bits & ~b.f_bits); }
    friend constexpr set_of operator*(set_of a, set_of b) { return from_bits(a.f_bits & b.f_bits); }
    friend constexpr bool operator==(set_of, set_of) = default;

private:
    static constexpr std::uint64_t bit(E value) { return std::uint64_t{1} << static_cast<unsigned>(value); }
    static constexpr set_of from_bits(std::uint64_t bits)
    {
        set_of result;
        result.f_bits = bits;
        return result;
    }

    std::uint64_t f_bits = 0;
};
