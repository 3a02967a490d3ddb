// The common SFU and HGU types of OnuAbilityGlobalVar as the library itself reads and
// changes them, while other threads do. Not for hosts.
#ifndef ONU_ABILITY_COMMON_GLOBAL_COMMON_TYPES_H
#define ONU_ABILITY_COMMON_GLOBAL_COMMON_TYPES_H

struct OnuCommonTypes {
  unsigned short sfu;
  unsigned short hgu;
};

OnuCommonTypes CommonTypes();
void SetSfuCommonType(unsigned short type);
void SetHguCommonType(unsigned short type);

#endif  // ONU_ABILITY_COMMON_GLOBAL_COMMON_TYPES_H
