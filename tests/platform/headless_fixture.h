#pragma once

#include <gtest/gtest.h>

#include "platform/headless/headless_platform.h"

namespace zk {

// A fresh headless platform in the en-US locale, installed as the current platform.
class HeadlessTest : public testing::Test {
 protected:
  HeadlessTest() : platform_(HeadlessOptions{u"en-US"}), scope_(platform_) {}

  HeadlessPlatform platform_;
  PlatformScope scope_;
};

}  // namespace zk
