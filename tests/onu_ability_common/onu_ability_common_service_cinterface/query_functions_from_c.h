/* The query functions as a module written in C calls them. */
#ifndef TESTS_QUERY_FUNCTIONS_FROM_C_H
#define TESTS_QUERY_FUNCTIONS_FROM_C_H

#ifdef __cplusplus
extern "C" {
#endif

struct query_answers {
  unsigned int module_id;
  unsigned int log_level_mask;
  unsigned int key_exists;
  unsigned int type_status;
  unsigned int value;
  unsigned int name_by_key_status;
  char name_by_key[16];
  unsigned int name_by_type_status;
  char name_by_type[16];
  unsigned int lamps_by_type;
  unsigned int lamps_by_key;
};

/* Calls every function of the header; sets the log level mask to `mask` first. */
struct query_answers ask_every_query_from_c(unsigned int key, unsigned short type,
                                            unsigned short code, unsigned int mask);

/* The status codes as C sees them, 0 to 4; 0xFFFFFFFF for another index. */
unsigned int status_code_from_c(int index);

#ifdef __cplusplus
}
#endif

#endif /* TESTS_QUERY_FUNCTIONS_FROM_C_H */
