// SPDX-License-Identifier: MIT
// Qt's dialogs store their state in the user's settings: here in a folder that goes when the tests end.
#include <gtest/gtest.h>
#include <stdlib.h>

#include "support/TemporaryFolder.hpp"

namespace mobrel::test {
namespace {

class SettingsFolder final : public testing::Environment {
 public:
    SettingsFolder() { ::setenv("XDG_CONFIG_HOME", m_folder.path().c_str(), 1); }

 private:
    TemporaryFolder m_folder;
};

const testing::Environment* const settingsFolder = testing::AddGlobalTestEnvironment(new SettingsFolder);

}  // namespace
}  // namespace mobrel::test
