/* Hours of sleep of ten patients after each of two drugs: does one of them give more? */
#include <stdio.h>
#include <tbvnonpara.h>

int main(void) {
    const double first[] = {0.7, -1.6, -0.2, -1.2, -0.1, 3.4, 3.7, 0.8, 0.0, 2.0};
    const double second[] = {1.9, 0.8, 1.1, 0.1, -0.1, 4.4, 5.5, 1.6, 4.6, 3.4};
    tbv_options options = TBV_OPTIONS_INIT;
    tbv_result *result = NULL;
    tbv_error error;
    double p, low, high;

    options.confidence = 0.9;
    if (tbv_mann_whitney(first, 10, second, 10, &options, &result, &error) != TBV_OK) {
        fprintf(stderr, "%s\n", error.text);
        return 1;
    }
    if (tbv_result_number(result, "p.exact.two", &p) == TBV_OK)
        printf("exact P = %.4f\n", p);
    if (tbv_result_number(result, "effect.shift.low", &low) == TBV_OK &&
        tbv_result_number(result, "effect.shift.high", &high) == TBV_OK)
        printf("shift between %g and %g\n", low, high);
    tbv_result_free(result);
    return 0;
}
