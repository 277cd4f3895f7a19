/* The only place of the version. The build, the package files, the command-line
   program and its manual read it from here. */
#ifndef ZU_PJ_EDIT_VERSION_H
#define ZU_PJ_EDIT_VERSION_H

#define ZU_PJ_EDIT_VERSION_MAJOR 0
#define ZU_PJ_EDIT_VERSION_MINOR 1
#define ZU_PJ_EDIT_VERSION_PATCH 0

/* The same as text, "0.1.0". */
#define ZU_PJ_EDIT_VERSION                                                    \
  ZU_PJ_EDIT_VERSION_TEXT(ZU_PJ_EDIT_VERSION_MAJOR, ZU_PJ_EDIT_VERSION_MINOR, \
                          ZU_PJ_EDIT_VERSION_PATCH)
#define ZU_PJ_EDIT_VERSION_TEXT(major, minor, patch) ZU_PJ_EDIT_VERSION_JOIN(major, minor, patch)
#define ZU_PJ_EDIT_VERSION_JOIN(major, minor, patch) #major "." #minor "." #patch

#endif
