/// @file
/// Confirms the type of one ONU from what it reports. The object is itself the
/// profile of the report: it is gathered through the host's hooks, recognised
/// against the match profiles, which overwrite it, and handed back.
///
/// One object a confirmation, owned by the caller and used by one thread: made,
/// performed once, destroyed. When the memory does not suffice, Perform throws std::bad_alloc;
/// the tables are then whole, and the object is to be destroyed.
#ifndef ONU_ABILITY_COMMON_TABLE_CONFIRM_ONU_TYPE_H
#define ONU_ABILITY_COMMON_TABLE_CONFIRM_ONU_TYPE_H

#include "onu_ability_common_table/onu_ability_profile.h"

class RegisteredCodes;

/// One confirmation, and the profile that it works on.
class ONU_ABILITY_API ConfirmOnuType : public OnuAbilityProfile {
 public:
  /// An empty report. `place` (16 bits) and `onu` (8 bits) are handed to every hook.
  ConfirmOnuType(unsigned short place, unsigned char onu);
  /// Nothing but a line at level 10.
  ~ConfirmOnuType() override;

  /// The whole confirmation: gathers the report, looks for a match profile of the reported
  /// type, else for the newest that the abilities fit, translates the reported type, takes
  /// the type name (code 1083) from the real profile, and tells the host through hooks 3,
  /// 4 and 5. 0, also for an ONU that nothing recognises, or ONU_ABILITY_RET_NULL_PTR, at
  /// level 13, when a hook is missing, before any is called. What the other hooks answer
  /// never ends it. Logs its steps at level 4; takes table locks, none while a hook runs.
  unsigned int Perform();

  // The steps of Perform.

  using OnuAbilityProfile::Init;
  /// Gathers the report through the hooks 7, 0, 1, 8, 6, 2, 9 and 3, which must all be
  /// registered. Of the registered codes it asks for those that are numbers and whose
  /// confirm-type attribute has the bit of value 2; a record that lacks either attribute
  /// acquires it with the value 0. Once an object: it does not clear. Level 4.
  void Init();
  /// 0 when the reported type is the key ability value of a match profile, which overwrites
  /// this one; else what the manager's lookup answers (level 4).
  unsigned int IsValidOnuType();
  /// Recognises the ONU by its abilities: the newest match profile that they fit overwrites
  /// this one; without any (level 4) it stays as it is. Always 0.
  unsigned int ConfirmOnuTypeByAbilities();
  /// Brings the private capability into codes 1002 and 48: a known one as it is and the
  /// wildcard, an unknown one as the wildcard. Always 0. Level 4.
  unsigned int UpdateOnucapaFromSpecialMe();
  /// Translates the reported type by the identify modes, if code 1023 of the real profile
  /// says so, and stores it under code 1080. Always 0. Level 4.
  unsigned int TransOnutypeByHswSwitch();

  unsigned short _place;                     ///< told to every hook
  unsigned char _onu;                        ///< told to every hook but 7
  unsigned int _key_ability_value = 0;       ///< after recognition
  unsigned int _report_type = 0;             ///< code 1080, then its translation
  unsigned short _identify_setting[4] = {};  ///< 0 SFU mode, 2 HGU mode, 3 for hook 2
  unsigned int _type_from_onu_report = 0;    ///< 0xFFFFFFFF once it proved unknown
  unsigned char _private_capability = 0xFF;  ///< 0 SFU, 1 HGU, 0xFF: unknown

 private:
  ONU_ABILITY_LOCAL void GatherAbilities();
  ONU_ABILITY_LOCAL static bool IsAsked(RegisteredCodes& registered, unsigned short code);
  ONU_ABILITY_LOCAL void AskAbility(unsigned short code);
  ONU_ABILITY_LOCAL void HandOver();
  ONU_ABILITY_LOCAL unsigned int TranslatedReportType(unsigned int onu_capa) const;
};

#endif  // ONU_ABILITY_COMMON_TABLE_CONFIRM_ONU_TYPE_H
