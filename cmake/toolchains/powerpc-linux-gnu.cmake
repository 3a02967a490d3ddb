# A machine of 32 bits that has the most significant byte first, so that no byte order
# is assumed: Debian's cross compiler, programs started by qemu. CMAKE_FIND_ROOT_PATH
# takes what was built for it from sources, since Debian has no packages for it.
set(CMAKE_SYSTEM_NAME Linux)
set(CMAKE_SYSTEM_PROCESSOR ppc)
set(CMAKE_C_COMPILER powerpc-linux-gnu-gcc)
set(CMAKE_CXX_COMPILER powerpc-linux-gnu-g++)
set(CMAKE_CROSSCOMPILING_EMULATOR qemu-ppc -L /usr/powerpc-linux-gnu)
set(CMAKE_FIND_ROOT_PATH_MODE_PROGRAM NEVER)
