#pragma once

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <functional>
#include <string>
#include <utility>

#include "frame/fault_text.h"
#include "platform/files.h"
#include "values/runtime_error.h"

namespace korvinel::platform {

/// The fault thrown by the action, with its message.
inline std::pair<Fault, std::string> faultOf(const std::function<void()>& action) {
  try {
    action();
  } catch (const RuntimeError& fault) {
    return {fault.fault, faultText(fault)};
  }
  return {Fault::overflow, "no fault"};
}

/// Neither reading nor writing accepts this path, and each message names it.
inline void expectNoOrdinaryFile(Files& files, const std::string& path) {
  const auto [readFault, readMessage] = faultOf([&] { static_cast<void>(files.openForReading(path)); });
  EXPECT_EQ(readFault, Fault::input) << path;
  EXPECT_THAT(readMessage, testing::HasSubstr(path));
  const auto [writeFault, writeMessage] = faultOf([&] { static_cast<void>(files.create(path)); });
  EXPECT_EQ(writeFault, Fault::output) << path;
  EXPECT_THAT(writeMessage, testing::HasSubstr(path));
}

}  // namespace korvinel::platform
