// Module id, command node and the common types.
#include "onu_ability_common_reg_extern_func.h"
#include "onu_ability_common_service_cli.h"
#include "support/recording_host.h"

namespace {

class HostSettingsTest : public LibraryTest {
 protected:
  OnuAbilityRegExternFunc* registry_ = OnuAbilityRegExternFunc::GetInstance();

  // Installs the commands and expects all of them under `node`.
  void ExpectInstalledUnder(unsigned int node) {
    EXPECT_EQ(0, onu_ability_service_cbb_cli_install_element());
    EXPECT_EQ(16U, host.elements().size());
    for (const RecordingHost::InstalledElement& installed : host.elements()) {
      EXPECT_EQ(node, installed.node) << installed.element->string;
    }
  }
};

TEST_F(HostSettingsTest, ModuleIdIs19UntilSet) {
  EXPECT_EQ(19U, registry_->GetModuleId());
  EXPECT_EQ(19U, onu_ability_get_module_id());
}

TEST_F(HostSettingsTest, ModuleIdHas32Bits) {
  registry_->SetModuleId(0xFEDCBA98U);
  EXPECT_EQ(0xFEDCBA98U, registry_->GetModuleId());
  EXPECT_EQ(0xFEDCBA98U, onu_ability_get_module_id());
}

TEST_F(HostSettingsTest, CommandNodeIs26UntilSet) {
  EXPECT_EQ(26U, registry_->GetCmdNode());
  registry_->SetCmdNode(0xFEDCBA98U);
  EXPECT_EQ(0xFEDCBA98U, registry_->GetCmdNode());
}

TEST_F(HostSettingsTest, CommandsInstallUnderNode26) { ExpectInstalledUnder(26); }

TEST_F(HostSettingsTest, CommandsInstallUnderTheNodeOfTheHost) {
  registry_->SetCmdNode(5);
  ExpectInstalledUnder(5);
}

TEST_F(HostSettingsTest, CommonTypesGoToTheGlobalSettings) {
  registry_->SetSfuCommonType(100);
  EXPECT_EQ(100, OnuAbilityGlobalVar::GetInstance()->_sfu_common_type);
  EXPECT_EQ(762, OnuAbilityGlobalVar::GetInstance()->_hgu_common_type);
  registry_->SetHguCommonType(65535);
  EXPECT_EQ(100, OnuAbilityGlobalVar::GetInstance()->_sfu_common_type);
  EXPECT_EQ(65535, OnuAbilityGlobalVar::GetInstance()->_hgu_common_type);
}

TEST_F(HostSettingsTest, CommonTypesDoNotTouchTheRegistry) {
  registry_->SetSfuCommonType(100);
  registry_->SetHguCommonType(200);
  EXPECT_EQ(19U, registry_->GetModuleId());
  EXPECT_EQ(26U, registry_->GetCmdNode());
  EXPECT_FALSE(registry_->WhetherExternFuncRegistered());
}

TEST_F(HostSettingsTest, ThereIsOneRegistry) {
  registry_->SetCmdNode(5);
  EXPECT_EQ(5U, OnuAbilityRegExternFunc::GetInstance()->GetCmdNode());
}

}  // namespace
