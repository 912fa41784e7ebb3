/* What R calls: two vectors of numbers and a level, the figures as JSON. */
#include <R.h>
#include <Rinternals.h>
#include <tbvnonpara.h>

SEXP mann_whitney(SEXP first, SEXP second, SEXP level) {
    tbv_options options = TBV_OPTIONS_INIT;
    tbv_result *result = NULL;
    tbv_error failure;
    SEXP json;
    options.confidence = asReal(level);
    options.missing = TBV_MISSING_OMIT; /* NA is one */
    if (tbv_mann_whitney(REAL(first), (size_t)XLENGTH(first), REAL(second), (size_t)XLENGTH(second), &options, &result,
                         &failure) != TBV_OK)
        error("%s", failure.text);
    json = PROTECT(mkString(tbv_result_json(result)));
    tbv_result_free(result);
    UNPROTECT(1);
    return json;
}
