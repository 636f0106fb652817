/* The C interface from a C program: a host's round trip through a document,
 * records by name, wobble, and bad input that must give codes, not crashes.
 * Usage: capi_test <scratch directory> */
#include <param_c.h>

#include <math.h>
#include <stdio.h>
#include <stdlib.h>
#include <string.h>

static int failures = 0;

#define CHECK(cond)                                              \
  do {                                                           \
    if (!(cond)) {                                               \
      fprintf(stderr, "%s:%d: check failed: %s\n", __FILE__, __LINE__, #cond); \
      ++failures;                                                \
    }                                                            \
  } while (0)

#define OK(call)                                                           \
  do {                                                                     \
    param_error e_ = (call);                                               \
    if (e_ != 0) {                                                         \
      fprintf(stderr, "%s:%d: %s failed: %s\n", __FILE__, __LINE__, #call, \
              param_error_text(e_));                                       \
      ++failures;                                                          \
    }                                                                      \
  } while (0)

static void documents(const char* dir) {
  char path[1024];
  snprintf(path, sizeof path, "%s/job.cfg", dir);

  /* A document with 16 default pens, written as AES-GCM with key 2. */
  param_doc* doc = NULL;
  OK(param_doc_create(&doc));
  char* saved = NULL;
  OK(param_record_load("PenArray", "{\"params\":[{},{},{},{},{},{},{},{},{},{},{},{},{},{},{},{}]}",
                       &saved, NULL));
  OK(param_doc_set(doc, "pens", saved));
  param_free(saved);
  OK(param_doc_write(doc, path, PARAM_OPTION(PARAM_ENCODING_AES, 0, 2)));
  param_doc_free(doc);

  /* Read it, change one pen, write it back in its own encoding. */
  OK(param_doc_read(path, &doc));
  uint64_t option = 0;
  OK(param_doc_option(doc, &option));
  CHECK(option == PARAM_OPTION(PARAM_ENCODING_AES, 0, 2));
  char* power = NULL;
  OK(param_doc_get(doc, "pens.params[3].laserPower", &power));
  CHECK(power && strcmp(power, "60") == 0);
  param_free(power);
  OK(param_doc_set(doc, "pens.params[3].laserPower", "75"));
  OK(param_doc_write(doc, path, option));
  char* members = NULL;
  OK(param_doc_members(doc, &members));
  CHECK(members && strstr(members, "\"pens\"") != NULL);
  param_free(members);
  param_doc_free(doc);

  param_doc* back = NULL;
  OK(param_doc_read(path, &back));
  OK(param_doc_get(back, "pens.params[3].laserPower", &power));
  CHECK(power && strcmp(power, "75") == 0);
  param_free(power);
  OK(param_doc_get(back, "pens.params[2].laserPower", &power));
  CHECK(power && strcmp(power, "60") == 0);
  param_free(power);
  param_doc_free(back);
}

static void records(void) {
  char* saved = NULL;
  char* skipped = NULL;
  OK(param_record_load("PenParam", "{\"laserPower\":\"75\",\"penName\":\"caf\xc3\xa9\"}", &saved,
                       &skipped));
  CHECK(saved && strstr(saved, "\"laserPower\":60") != NULL);
  CHECK(saved && strstr(saved, "\"penName\":\"caf\xc3\xa9\"") != NULL);
  CHECK(skipped && strstr(skipped, "\"path\":\"laserPower\"") != NULL);
  param_free(saved);
  param_free(skipped);

  char* types = NULL;
  OK(param_record_types(&types));
  CHECK(types && strstr(types, "\"LmcParam\"") != NULL);
  param_free(types);
  char* schema = NULL;
  OK(param_record_schema("WobbleParam", &schema));
  CHECK(schema && strstr(schema, "2020-12") != NULL);
  param_free(schema);
}

static void wobble(void) {
  const double params[PARAM_WOBBLE_PARAM_COUNT] = {1, 0, 1.0, 1.0, 0.5};
  const double line[4] = {0, 0, 10, 0};
  double* out = NULL;
  size_t count = 0;
  OK(param_wobble(params, PARAM_WOBBLE_PARAM_COUNT, line, 2, &out, &count));
  CHECK(count > 900 && out != NULL);
  for (size_t i = 0; out && i < count; ++i) {
    CHECK(fabs(out[2 * i + 1]) <= 0.5 + 1e-9 && out[2 * i] >= -0.5 - 1e-9);
    if (failures) break;
  }
  param_free(out);
}

static void badInput(const char* dir) {
  char path[1024];
  param_doc* doc = NULL;
  char* text = NULL;
  snprintf(path, sizeof path, "%s/missing.cfg", dir);
  CHECK(param_doc_read(path, &doc) == 0x230004u && doc == NULL);
  CHECK(strstr(param_error_text(0x230004u), "not found") != NULL);
  CHECK(param_doc_read(NULL, &doc) == PARAM_C_INVALID_ARGUMENT);
  CHECK(param_doc_get(NULL, "a", &text) == PARAM_C_INVALID_ARGUMENT && text == NULL);
  CHECK(param_record_load("NoSuchRecord", "{}", &text, NULL) != 0 && text == NULL);
  CHECK(param_record_load("PenParam", "{not json", &text, NULL) != 0 && text == NULL);
  OK(param_doc_create(&doc));
  CHECK(param_doc_set(doc, "a.b", "1") != 0);      /* no parent "a" */
  CHECK(param_doc_set(doc, "a", "{bad") != 0);     /* not JSON */
  CHECK(param_doc_get(doc, "a[", &text) != 0);     /* not a path */
  CHECK(param_doc_write(doc, path, 7) != 0);       /* no such encoding */
  param_doc_free(doc);
  double* out = NULL;
  size_t count = 0;
  const double params[5] = {1, 0, 1, 1, 0.5};
  CHECK(param_wobble(params, 4, NULL, 0, &out, &count) == PARAM_C_INVALID_ARGUMENT);
  const double nan[5] = {1, 0, 1, 1, NAN};
  const double line[4] = {0, 0, 1, 0};
  CHECK(param_wobble(nan, 5, line, 2, &out, &count) == PARAM_C_INVALID_ARGUMENT && out == NULL);
  const double fine[5] = {1, 0, 1, 1, 0.001};
  const double far[4] = {0, 0, 1e12, 0};
  CHECK(param_wobble(fine, 5, far, 2, &out, &count) != 0 && out == NULL);
}

int main(int argc, char** argv) {
  if (argc != 2) {
    fprintf(stderr, "usage: %s <scratch directory>\n", argv[0]);
    return 2;
  }
  char defaults[1024];
  snprintf(defaults, sizeof defaults, "%s/defaults.cfg", argv[1]);
  OK(param_load(defaults));
  CHECK(strchr(param_version(), '.') != NULL);
  documents(argv[1]);
  records();
  wobble();
  badInput(argv[1]);
  param_unload();
  if (failures) {
    printf("capi_test: %d checks failed\n", failures);
  } else {
    printf("capi_test: every check passed\n");
  }
  return failures ? 1 : 0;
}
