# Read by cpack itself: its tools look for libraries of this architecture.
set(ENV{DEB_HOST_ARCH} ${CPACK_DEBIAN_PACKAGE_ARCHITECTURE})
