# 32-bit ARM, as the boards have it: Debian's cross compiler, programs started by qemu.
# BOARD_PACKAGES is where scripts/unpack_board_packages.sh put the board's libraries;
# the library alone needs none.
set(CMAKE_SYSTEM_NAME Linux)
set(CMAKE_SYSTEM_PROCESSOR arm)
set(CMAKE_C_COMPILER arm-linux-gnueabihf-gcc)
set(CMAKE_CXX_COMPILER arm-linux-gnueabihf-g++)
set(CMAKE_CROSSCOMPILING_EMULATOR qemu-arm -L /usr/arm-linux-gnueabihf)
# Of standard templates: a call convention that changed with the seventh of its versions.
set(CMAKE_CXX_FLAGS_INIT -Wno-psabi)

# Libraries come from the board's packages; what is headers alone is as good from here.
set(CMAKE_TRY_COMPILE_PLATFORM_VARIABLES BOARD_PACKAGES)
if(BOARD_PACKAGES)
  set(libraries ${BOARD_PACKAGES}/usr/lib/arm-linux-gnueabihf)
  list(APPEND CMAKE_FIND_ROOT_PATH ${BOARD_PACKAGES} /usr/arm-linux-gnueabihf)
  set(ENV{PKG_CONFIG_LIBDIR} ${libraries}/pkgconfig)
  set(ENV{PKG_CONFIG_SYSROOT_DIR} ${BOARD_PACKAGES})
  # Libraries that libraries need, too, while linking and when started.
  set(CMAKE_BUILD_RPATH ${libraries} ${BOARD_PACKAGES}/lib/arm-linux-gnueabihf)
  add_link_options(-Wl,--disable-new-dtags,-rpath-link,${libraries}
    -Wl,-rpath-link,${BOARD_PACKAGES}/lib/arm-linux-gnueabihf)
endif()
set(CMAKE_FIND_ROOT_PATH_MODE_PROGRAM NEVER)
set(CMAKE_FIND_ROOT_PATH_MODE_LIBRARY ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_PACKAGE BOTH)
set(CMAKE_FIND_ROOT_PATH_MODE_INCLUDE BOTH)
