/** @file
 * The eight tests in full for C and for all that calls C.
 *
 *     tbv_result *result = NULL;
 *     tbv_error error;
 *     double low;
 *     if (tbv_mann_whitney(first, n1, second, n2, NULL, &result, &error) != TBV_OK)
 *         puts(error.text);
 *     else if (tbv_result_number(result, "effect.superiority.low", &low) == TBV_OK)
 *         printf("%g\n", low);
 *     tbv_result_free(result);
 *
 * The library keeps nothing between calls: any number of threads may call it, and read one result at a time
 * or together. It prints nothing and ends no program.
 */
#ifndef TBVNONPARA_H
#define TBVNONPARA_H

#include <stddef.h> /* NOLINT(modernize-deprecated-headers): of C */
#include <stdint.h> /* NOLINT(modernize-deprecated-headers): of C */

/** @def TBV_API
 * Marks what the library offers. Define TBV_STATIC where its archive is linked on Windows. */
#if defined(_WIN32) && defined(TBV_BUILDS_SHARED)
#define TBV_API __declspec(dllexport)
#elif defined(_WIN32) && !defined(TBV_STATIC)
#define TBV_API __declspec(dllimport)
#elif defined(__GNUC__)
#define TBV_API __attribute__((visibility("default")))
#else
#define TBV_API
#endif

#ifdef __cplusplus
extern "C" {
#endif

/** What a function returns. */
typedef enum tbv_status {
    TBV_OK = 0,            /**< done */
    TBV_ABSENT = 1,        /**< the test has such a figure, these data do not */
    TBV_UNKNOWN_NAME = 2,  /**< the test has no such figure */
    TBV_WRONG_KIND = 3,    /**< a number was asked for and it is a text, or several figures */
    TBV_BAD_DATA = 4,      /**< values that cannot be tested; the error's text says which */
    TBV_BAD_ARGUMENT = 5,  /**< a null pointer, or an option that is none */
    TBV_OUT_OF_MEMORY = 6, /**< no memory for the result or for the computation */
    TBV_INTERNAL = 7,      /**< a fault of the library */
    TBV_INTERRUPTED = 8    /**< options->watch ended the test */
} tbv_status;

/** What was wrong, in English, ended by 0: empty after TBV_OK. */
typedef struct tbv_error {
    char text[256]; /**< cut off where it is longer */
} tbv_error;

/** What becomes of NaN. */
enum {
    TBV_MISSING_REFUSE = 0, /**< TBV_BAD_DATA */
    TBV_MISSING_OMIT = 1    /**< left out and counted: the value, the pair or the whole block */
};
/** How P of several comparisons is adjusted. */
enum {
    TBV_ADJUST_HOLM = 0,               /**< Holm (1979) */
    TBV_ADJUST_BONFERRONI = 1,         /**< P times the number of comparisons */
    TBV_ADJUST_BENJAMINI_HOCHBERG = 2, /**< Benjamini and Hochberg (1995) */
    TBV_ADJUST_NONE = 3                /**< P as it is */
};

/** Told, some times a second, which share of a long count is done, 0 to 1; what follows it, another count,
 * random arrangements or comparisons of many groups, begins at 0 again. Anything but 0 ends the test:
 * TBV_INTERRUPTED. It is called by the thread that called the test, with `data` from options->watch_data, may
 * call the library itself and must return (no longjmp). */
typedef int (*tbv_watch)(double share, void* data);

/** How a test is to be computed. Later versions add members at the end: `size` says which of them a caller
 * has. */
typedef struct tbv_options {
    size_t size;        /**< sizeof(tbv_options) */
    double confidence;  /**< level of the intervals, 0.5 to 0.999 */
    double exact_steps; /**< additions that an exact count may take; 0 leaves it out */
    size_t control;     /**< the group that the others are compared with, from 1; 0: all pairs */
    int missing;        /**< TBV_MISSING_...: NaN is an error, or left out and counted */
    int adjustment;     /**< TBV_ADJUST_...: how P of several comparisons is adjusted */
    int trend;          /**< not 0: also whether values rise from group to group */
    int reserved;       /**< 0 */
    uint64_t seed;      /**< of the random arrangements: the same ones everywhere; 0 stands for 1 */
    /** random arrangements, up to 1000000000, from which P is estimated where nothing can be counted
     * exactly: the figures "permutations" beside "exact"; 0 for none */
    size_t permutations;
    tbv_watch watch;  /**< told how far a long test is; NULL for nobody */
    void* watch_data; /**< what it gets with that */
} tbv_options;

/** The defaults, to begin with in C: tbv_options options = TBV_OPTIONS_INIT; */
#define TBV_OPTIONS_INIT \
    { sizeof(tbv_options), 0.95, 1e9, 0, TBV_MISSING_REFUSE, TBV_ADJUST_HOLM, 0, 0, 0, 0, NULL, NULL }

/** The same from elsewhere; `size` is that of the caller's structure, of which no byte beyond is written.
 * NULL is allowed. */
TBV_API void tbv_options_init(tbv_options* options, size_t size);

/** A test's figures; they do not change until it is freed. */
typedef struct tbv_result tbv_result;

/** @name The tests
 * Values are finite, in any order, and are not changed; `options` may be NULL for the defaults,
 * `error` may be NULL. After TBV_OK *result is a result that the caller frees, after anything else NULL. Each
 * takes O(n log n) steps, an exact count of at most options->exact_steps or, in its place,
 * options->permutations times n steps. TBV_BAD_DATA: too few values, or one that is not finite;
 * TBV_BAD_ARGUMENT: a null pointer, or an option that is none; TBV_OUT_OF_MEMORY; TBV_INTERRUPTED. The
 * authors of formulas are named with the functions of the same names for C++. */
/** @{ */

/** Two independent samples, of n1 and n2 values from 1 on: Wilcoxon (1945), Mann and Whitney (1947). */
TBV_API tbv_status tbv_mann_whitney(const double* first, size_t n1, const double* second, size_t n2,
                                    const tbv_options* options, tbv_result** result, tbv_error* error);

/** Pairs, n values each, from 1 on: the signed ranks of Wilcoxon (1945). */
TBV_API tbv_status tbv_wilcoxon(const double* first, const double* second, size_t n,
                                const tbv_options* options, tbv_result** result, tbv_error* error);
/** Pairs, n values each, from 2 on: the rank correlation of Spearman (1904). */
TBV_API tbv_status tbv_spearman(const double* first, const double* second, size_t n,
                                const tbv_options* options, tbv_result** result, tbv_error* error);
/** Pairs, n values each, from 1 on: do the signs of their differences balance? */
TBV_API tbv_status tbv_sign(const double* first, const double* second, size_t n, const tbv_options* options,
                            tbv_result** result, tbv_error* error);
/** Signs themselves: n codes above 0, below 0 and 0. O(n). */
TBV_API tbv_status tbv_sign_codes(const double* codes, size_t n, const tbv_options* options,
                                  tbv_result** result, tbv_error* error);

/** Are the groups above one median alike (Mood 1950)? `count` groups, of which groups[i] has sizes[i] values.
 * Groups without values are left out; the figure "labels" has the numbers of the others, from 1. */
TBV_API tbv_status tbv_median(const double* const* groups, const size_t* sizes, size_t count,
                              const tbv_options* options, tbv_result** result, tbv_error* error);
/** Do groups differ in their ranks (Kruskal and Wallis 1952)? Groups are given as to tbv_median(). */
TBV_API tbv_status tbv_kruskal_wallis(const double* const* groups, const size_t* sizes, size_t count,
                                      const tbv_options* options, tbv_result** result, tbv_error* error);
/** Do treatments of the same blocks differ (Friedman 1937)? `count` treatments, from 2 on: treatments[i] has
 * a value for each of the blocks, from 2 on. */
TBV_API tbv_status tbv_friedman(const double* const* treatments, size_t count, size_t blocks,
                                const tbv_options* options, tbv_result** result, tbv_error* error);

/** Runs in a sequence of n categories, each a code of its own (Wald and Wolfowitz 1940). O(n). */
TBV_API tbv_status tbv_runs(const int* codes, size_t n, const tbv_options* options, tbv_result** result,
                            tbv_error* error);
/** The same for numbers, each distinct one a category. O(n log n). */
TBV_API tbv_status tbv_runs_numbers(const double* numbers, size_t n, const tbv_options* options,
                                    tbv_result** result, tbv_error* error);

/** @} */

/** @name The figures
 * By the names that they have in JSON; places in lists count from 1: "p.exact.two",
 * "groups.2.median.low". A name above a "value" stands for it: "effect.superiority". TBV_OK, TBV_ABSENT,
 * TBV_UNKNOWN_NAME, TBV_WRONG_KIND or TBV_BAD_ARGUMENT; after anything but TBV_OK the place for the answer
 * holds NaN, NULL or 0. Nothing is copied or computed. */
/** @{ */
/** A number; counts are numbers, too. */
TBV_API tbv_status tbv_result_number(const tbv_result* result, const char* name, double* number);
/** The text is the result's and lives as long. */
TBV_API tbv_status tbv_result_text(const tbv_result* result, const char* name, const char** text);
/** How many places a list has. */
TBV_API tbv_status tbv_result_count(const tbv_result* result, const char* name, size_t* count);

/** @} */

/** All of it as JSON in UTF-8, which is the result's and lives as long; NULL without memory for it. */
TBV_API const char* tbv_result_json(const tbv_result* result);

/** Frees a result and all texts of it; NULL is allowed. */
TBV_API void tbv_result_free(tbv_result* result);

/** What a status means, in English. */
TBV_API const char* tbv_status_text(tbv_status status);

/** "0.1.0": of the library that runs, which may be newer than this header. */
TBV_API const char* tbv_version(void);

#ifdef __cplusplus
}
#endif

#endif
