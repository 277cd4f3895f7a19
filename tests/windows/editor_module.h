/* What the tests agree with their editor module on. */
#ifndef ZU_EDITOR_MODULE_H
#define ZU_EDITOR_MODULE_H

/* C reads it, too. */
/* NOLINTBEGIN(modernize-use-using,modernize-redundant-void-arg,cppcoreguidelines-macro-usage) */

/* Values of the second argument that make the module's function throw. */
enum { editor_throws_text = 1, editor_raises_code = 2 };
#define EDITOR_TEXT "thrown by the editor module"
#define EDITOR_CODE 0xE0424242UL

typedef struct {
  int calls;
  void* window;
  void* first;
  void* second;
} editor_record;

/* "editor_module_record" of the module: what its function last got. */
typedef editor_record const* (*editor_record_function)(void);

/* What the function returns, as a number. */
#define EDITOR_RESULT 0x1122334455667788

/* NOLINTEND(modernize-use-using,modernize-redundant-void-arg,cppcoreguidelines-macro-usage) */

#endif
