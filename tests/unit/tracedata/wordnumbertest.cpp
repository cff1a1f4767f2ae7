/// The numberings of a header word: none is taken for another, nor for a plain integer, without saying so.
#include "tracedata/wordnumber.h"
#include "tracedata/menukeys.h"
#include "tracedata/parmmenu.h"

#include <gtest/gtest.h>

#include <memory>
#include <tuple>
#include <type_traits>

using Numberings = std::tuple<WordFrom0, WordFrom1, MapSlot, SortCode, KeyNumber>;

template <class A, class B>
constexpr bool areApart = std::is_same_v<A, B> || (!std::is_convertible_v<A, B> && !std::is_constructible_v<B, A> &&
                                                   !std::is_assignable_v<B&, A>);

template <class A>
constexpr bool isApartFromInt =
    !std::is_convertible_v<int, A> && !std::is_convertible_v<A, int> && !std::is_constructible_v<int, A> &&
    !std::is_assignable_v<A&, int> && !std::is_assignable_v<int&, A>;

template <class A, class... B>
constexpr bool isApartFromAll = isApartFromInt<A> && (areApart<A, B> && ...);

template <class... All>
constexpr bool areAllApart(std::tuple<All...>*)
{
    return (isApartFromAll<All, All...> && ...);
}

static_assert(areAllApart(static_cast<Numberings*>(nullptr)));
static_assert(!std::is_invocable_v<decltype(from0), WordFrom0>);
static_assert(!std::is_invocable_v<decltype(from1), WordFrom1>);
static_assert(std::is_constructible_v<MapSlot, int>);  // what says the numbering is let through

TEST(WordNumber, CountingFrom0AndFrom1AreOneApart)
{
    EXPECT_EQ(from0(WordFrom1(15)).value, 14);
    EXPECT_EQ(from1(WordFrom0(14)).value, 15);
    EXPECT_EQ(from0(WordFrom1()), WordFrom0()) << "no word is no word in both";
    EXPECT_EQ(from1(WordFrom0()), WordFrom1());
}

TEST(WordNumber, TheMenusKeysCountFrom1AndTheDisplaysFrom0)
{
    auto menu = std::make_unique<parmmenu>();
    menu->ipkey = 4;
    menu->ipkeyreal = 15;
    menu->iskey = 1;
    menu->iskeyreal = 0;
    const HeaderKeys keys = menuKeys(*menu);
    EXPECT_EQ(keys.pri, WordFrom0(3));
    EXPECT_EQ(keys.priReal, WordFrom0(14));
    EXPECT_EQ(keys.sec, WordFrom0(0));
    EXPECT_EQ(keys.secReal, WordFrom0());
}

TEST(WordNumber, OnlyOutsideOfSegyHaveTheKeysOfTheDataNamesOfTheirOwn)
{
    auto menu = std::make_unique<parmmenu>();
    EXPECT_FALSE(menuKeys(*menu).realHaveNames);
    for (int mode : {1, 2}) {
        menu->dotrevia = mode;
        EXPECT_TRUE(menuKeys(*menu).realHaveNames);
    }
}

TEST(WordNumber, NewKeysAreThoseOfTheDataAndOfTheAnnotation)
{
    auto menu = std::make_unique<parmmenu>();
    setMenuKeys(menu.get(), WordFrom1(4), WordFrom1(1));
    EXPECT_EQ(menu->ipkey, 4);
    EXPECT_EQ(menu->ipkeyreal, 4);
    EXPECT_EQ(menu->iskey, 1);
    EXPECT_EQ(menu->iskeyreal, 1);
}
