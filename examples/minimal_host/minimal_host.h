/* What the sources of the minimal host offer each other, and a module in C. */
#ifdef __cplusplus
extern "C" {
#endif
extern struct vty host_terminal;        /* the one terminal: standard output */
extern unsigned int installed_commands; /* how many the library offered */
void start_host(void);                  /* the library ready, with two types of ONU */
#ifdef __cplusplus
}
#endif
