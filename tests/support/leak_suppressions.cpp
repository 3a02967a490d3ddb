// Under the leak sanitizer: the manager leaves its tables to the end of the
// process, as meant, so they are no leak.
extern "C" const char* __lsan_default_suppressions();

extern "C" const char* __lsan_default_suppressions() {
  return "leak:OnuAbilityTableManager::AddOnuAbilityTable\n";
}
