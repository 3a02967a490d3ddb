// Confirms the type of one ONU from what it reports. The object is itself the
// profile of the report: it is gathered through the host's hooks, recognised
// against the match profiles, which overwrite it, and handed back.
//
// One object a confirmation, owned by the caller and used by one thread: made,
// performed once, destroyed.
#ifndef ONU_ABILITY_COMMON_TABLE_CONFIRM_ONU_TYPE_H
#define ONU_ABILITY_COMMON_TABLE_CONFIRM_ONU_TYPE_H

#include "onu_ability_common_table/onu_ability_profile.h"

class RegisteredCodes;

class ONU_ABILITY_API ConfirmOnuType : public OnuAbilityProfile {
 public:
  // `place` and `onu` are handed to every hook.
  ConfirmOnuType(unsigned short place, unsigned char onu);
  ~ConfirmOnuType() override;

  // The whole confirmation. 0, also for an ONU that nothing recognises, or
  // ONU_ABILITY_RET_NULL_PTR when a hook is missing, before any is called.
  unsigned int Perform();

  // The steps of Perform.

  using OnuAbilityProfile::Init;
  // Gathers the report through the hooks, which must all be registered. Once an
  // object: it does not clear.
  void Init();
  // 0 when the reported type names a match profile, which overwrites this one.
  unsigned int IsValidOnuType();
  // Recognises the ONU by its abilities. Always 0.
  unsigned int ConfirmOnuTypeByAbilities();
  // Brings the private capability into codes 1002 and 48. Always 0.
  unsigned int UpdateOnucapaFromSpecialMe();
  // Translates the reported type by the identify modes. Always 0.
  unsigned int TransOnutypeByHswSwitch();

  unsigned short _place;
  unsigned char _onu;
  unsigned int _key_ability_value = 0;       // after recognition
  unsigned int _report_type = 0;             // code 1080, then its translation
  unsigned short _identify_setting[4] = {};  // 0 SFU mode, 2 HGU mode, 3 for hook 2
  unsigned int _type_from_onu_report = 0;    // 0xFFFFFFFF once it proved unknown
  unsigned char _private_capability = 0xFF;  // 0xFF: unknown

 private:
  ONU_ABILITY_LOCAL void GatherAbilities();
  ONU_ABILITY_LOCAL static bool IsAsked(RegisteredCodes& registered, unsigned short code);
  ONU_ABILITY_LOCAL void AskAbility(unsigned short code);
  ONU_ABILITY_LOCAL void HandOver();
  ONU_ABILITY_LOCAL unsigned int TranslatedReportType(unsigned int onu_capa) const;
};

#endif  // ONU_ABILITY_COMMON_TABLE_CONFIRM_ONU_TYPE_H
