#include "autofill/portfolio.h"

#include <gtest/gtest.h>

#include <stdexcept>
#include <thread>

#include "autofill/testing.h"

namespace autofill {
namespace {

// A grid that the first search alone doesn't fill, so all of them run.
const Board& HardBoard() {
  static const Board board(ReadGrid("am15-09.txt"));
  return board;
}

bool IsHelper(std::thread::id main) {
  return std::this_thread::get_id() != main;
}

TEST(Portfolio, StopsInEachThread) {
  Portfolio portfolio(HardBoard(), Level2(), {}, 4);
  const auto main = std::this_thread::get_id();
  bool asked = false;
  const Outcome outcome = portfolio.Run([&] {
    asked = asked || IsHelper(main);
    return asked;
  });
  EXPECT_EQ(outcome, Outcome::Stopped);
  EXPECT_GT(portfolio.Statistics().fails, 0);
}

TEST(Portfolio, WhatGoesWrongInAThreadIsThrown) {
  Portfolio portfolio(HardBoard(), Level2(), {}, 4);
  const auto main = std::this_thread::get_id();
  const auto fail = [&]() -> bool {
    if (IsHelper(main)) throw std::runtime_error("no memory");
    return false;
  };
  EXPECT_THROW(portfolio.Run(fail), std::runtime_error);
}

}  // namespace
}  // namespace autofill
