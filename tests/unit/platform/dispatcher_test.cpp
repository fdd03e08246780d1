#include "platform/dispatcher.h"

#include <gtest/gtest.h>

#include <new>
#include <stdexcept>

#include "platform/application.h"
#include "platform/desktop_test.h"
#include "platform/run_time_error.h"

namespace platform {
namespace {

using memory::desktop;

class DispatcherTest : public ::memory::DesktopTest {};

TEST_F(DispatcherTest, AHandlerThatEndsWellShowsNothing) {
  int runs = 0;
  EXPECT_TRUE(dispatch([&runs] { ++runs; }));
  EXPECT_EQ(runs, 1);
  EXPECT_TRUE(desktop().messages.empty());
}

TEST_F(DispatcherTest, AnEmptyHandlerDoesNothing) {
  EXPECT_TRUE(dispatch({}));
  EXPECT_TRUE(desktop().messages.empty());
}

TEST_F(DispatcherTest, AnErrorIsReportedAndEndsTheHandlerOnly) {
  bool afterwards = false;
  EXPECT_FALSE(dispatch([&afterwards] {
    throw RunTimeError(error::fileNotFound);
    afterwards = true;
  }));
  EXPECT_FALSE(afterwards);
  ASSERT_EQ(desktop().messages.size(), 1U);
  const auto& report = desktop().messages.front();
  EXPECT_EQ(report.text, L"Run-time error '53':\r\n\r\nFile not found");
  EXPECT_EQ(report.title, application::title);
  EXPECT_EQ(report.style, dialogs::MessageStyle::critical);
  EXPECT_EQ(desktop().errorReports, std::vector<int>{53});
}

TEST_F(DispatcherTest, RunningOutOfMemoryIsErrorSeven) {
  EXPECT_FALSE(dispatch([] { throw std::bad_alloc(); }));
  EXPECT_FALSE(dispatch([] { throw std::length_error("too long"); }));
  EXPECT_EQ(desktop().errorReports, (std::vector<int>{7, 7}));
}

TEST_F(DispatcherTest, AReportForWhichThereIsNoMemoryGivesWayToTheReportAboutThat) {
  desktop().onMessage = [](const ::memory::Message& /*message*/) {
    desktop().onMessage = nullptr;
    throw std::bad_alloc();
  };
  EXPECT_FALSE(dispatch([] { throw RunTimeError(53); }));
  EXPECT_EQ(desktop().errorReports, (std::vector<int>{53, 7}));
}

TEST_F(DispatcherTest, WhatIsNoFailureOfTheProgramPassesThrough) {
  EXPECT_THROW(dispatch([] { application::end(); }), ::memory::ProgramEnded);
  EXPECT_THROW(dispatch([] { throw std::logic_error("a mistake in the code"); }), std::logic_error);
  EXPECT_TRUE(desktop().messages.empty());
}

TEST_F(DispatcherTest, AHandlerMayReplaceItselfWhileItRuns) {
  std::function<void()> handler;
  int value = 0;
  handler = [&handler, &value, held = std::vector<int>{1, 2, 3}] {
    handler = nullptr;
    value = held[2];
  };
  EXPECT_TRUE(dispatch(handler));
  EXPECT_EQ(value, 3);
}

TEST_F(DispatcherTest, AHandlerRunsInsideAnother) {
  EXPECT_TRUE(dispatch([] { EXPECT_FALSE(dispatch([] { throw RunTimeError(5); })); }));
  EXPECT_EQ(desktop().errorReports, std::vector<int>{5});
}

}  // namespace
}  // namespace platform
