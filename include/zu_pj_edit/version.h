/* The one place that holds the version: the build, the package files, the
   command-line program and the library's resources all read it from here. */
#ifndef ZU_PJ_EDIT_VERSION_H
#define ZU_PJ_EDIT_VERSION_H

#define ZU_PJ_EDIT_VERSION_MAJOR 0
#define ZU_PJ_EDIT_VERSION_MINOR 1
#define ZU_PJ_EDIT_VERSION_PATCH 0
#define ZU_PJ_EDIT_VERSION "0.1.0"

#endif
