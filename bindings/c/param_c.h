/*
 * The C interface of the param library: documents, records, wobble paths and
 * error texts for hosts in any language that can call C (C#, Delphi, LabVIEW,
 * Python through ctypes...).
 *
 * Rules that hold for every function:
 * - Every fallible function returns a param_error: 0 on success, else a code of
 *   the library (param_error_text describes it). Nothing is thrown and no bad
 *   input stops the process: a null pointer where one is needed, text that is
 *   not JSON, an unknown type name give a code.
 * - Handles are opaque. A handle belongs to the caller until it is given to its
 *   _free function; one handle must not be used by two threads at once.
 * - Text goes in and out as UTF-8, zero-terminated. Every buffer that a
 *   function returns through an out parameter (char**, double**) is the
 *   caller's and is released with param_free. On failure, out parameters are
 *   set to null (or 0) and nothing is to be freed.
 * - Key paths name a value inside a document: members separated by ".", array
 *   elements as "[i]": "pens.params[3].laserPower". A member name holding ".",
 *   "[", "]" or "\" writes them as "\.", "\[", "\]", "\\". The empty path is
 *   the whole document.
 */
#ifndef PARAM_C_H
#define PARAM_C_H

#include <stddef.h>
#include <stdint.h>

#if defined(_WIN32) || defined(__CYGWIN__)
#if defined(PARAM_C_BUILDING)
#define PARAM_C_API __declspec(dllexport)
#else
#define PARAM_C_API __declspec(dllimport)
#endif
#else
#define PARAM_C_API __attribute__((visibility("default")))
#endif

#ifdef __cplusplus
extern "C" {
#endif

typedef uint32_t param_error;

/* Codes of the C interface itself (the library's own codes pass through). */
#define PARAM_C_INVALID_ARGUMENT 0x280001u /* a null pointer or a bad value */
#define PARAM_C_INTERNAL_ERROR 0x280002u   /* an unexpected failure inside the library */

/* Option words of param_doc_write: encoding in bits 0-3, AES mode in bits 4-5,
 * key index in bits 6-7. */
#define PARAM_ENCODING_BASE64 0u
#define PARAM_ENCODING_XOR 1u
#define PARAM_ENCODING_LZMA 2u
#define PARAM_ENCODING_AES 3u
#define PARAM_OPTION(encoding, aes_mode, key_index) \
  ((uint64_t)(encoding) | ((uint64_t)(aes_mode) << 4) | ((uint64_t)(key_index) << 6))

/* ---- The library ---- */

/* Starts the library with the file of stored defaults (may not exist yet).
 * Call once before anything else, and param_unload at the end. */
PARAM_C_API param_error param_load(const char* defaults_path);
PARAM_C_API void param_unload(void);

/* "1.0.0.0": the library's version. Static text, not to be freed. */
PARAM_C_API const char* param_version(void);

/* A short English description of a code; for a file code it names the file
 * and the operating system's reason of the calling thread's last file
 * failure. Valid until the next call on the same thread; not to be freed. */
PARAM_C_API const char* param_error_text(param_error code);

/* Releases a buffer returned by this interface; null is ignored. */
PARAM_C_API void param_free(void* buffer);

/* ---- Documents ---- */

typedef struct param_doc param_doc;

/* An empty document. */
PARAM_C_API param_error param_doc_create(param_doc** doc);
/* Reads a document file. On a failure after the file was parsed (no
 * information block), *doc is still null. */
PARAM_C_API param_error param_doc_read(const char* path, param_doc** doc);
/* Writes the document to `path` with the option word (PARAM_OPTION). */
PARAM_C_API param_error param_doc_write(param_doc* doc, const char* path, uint64_t option);
/* The option word of the file the document was read from; 0 for a created one. */
PARAM_C_API param_error param_doc_option(const param_doc* doc, uint64_t* option);
PARAM_C_API void param_doc_free(param_doc* doc);

/* The names of the document's top-level members as a JSON array of strings. */
PARAM_C_API param_error param_doc_members(const param_doc* doc, char** json);
/* The JSON text of the value at `path`. */
PARAM_C_API param_error param_doc_get(const param_doc* doc, const char* path, char** json);
/* Stores the JSON value `json` at `path`: the member or element is replaced,
 * or added when its parent object exists and lacks it. */
PARAM_C_API param_error param_doc_set(param_doc* doc, const char* path, const char* json);

/* ---- Records ---- */

/* The record type names ("PenParam", "PenArray", "LmcParam"...) as a JSON array. */
PARAM_C_API param_error param_record_types(char** json);
/* The JSON Schema (draft 2020-12) of one record type, or of all for null. */
PARAM_C_API param_error param_record_schema(const char* type, char** json);
/* Loads the JSON object `json` as a record of `type` over its built-in
 * defaults and returns, in *saved, what the record saves (every key, defaults
 * filled in) and, in *skipped (may be null if not wanted), a JSON array of the
 * keys the load skipped: [{"path": "...", "code": n, "reason": "...",
 * "found": ..., "kept": ...}]. Returns the load's code: 0 unless the load had
 * to stop. */
PARAM_C_API param_error param_record_load(const char* type, const char* json, char** saved,
                                          char** skipped);

/* ---- Wobble ---- */

/* The wobble parameters of a pen in their key order: bEnable (0 or 1),
 * wobbleType, wobbleDiaX, wobbleDiaY, wobbleSpace. */
#define PARAM_WOBBLE_PARAM_COUNT 5u

/* Wobbles a polyline of `point_count` points given as x0, y0, x1, y1, ...
 * with the wobble parameters `wobble` (PARAM_WOBBLE_PARAM_COUNT values). The
 * result is *out_count points in *out_xy (x0, y0, ...), to be freed with
 * param_free. */
PARAM_C_API param_error param_wobble(const double* wobble, size_t wobble_count, const double* xy,
                                     size_t point_count, double** out_xy, size_t* out_count);

#ifdef __cplusplus
}
#endif

#endif /* PARAM_C_H */
