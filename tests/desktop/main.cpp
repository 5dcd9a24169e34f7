// SPDX-License-Identifier: MIT
// Tests of windows need no display: Qt draws into memory.
#include <gtest/gtest.h>

#include "desktop/Application.hpp"

int main(int argc, char** argv) {
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
    testing::InitGoogleTest(&argc, argv);
    const mobrel::Application application(argc, argv);
    return RUN_ALL_TESTS();
}
