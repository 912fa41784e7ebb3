/* Two samples with so many ties that counting takes long: it is given a second, and P is estimated then. */
#include <stdio.h>
#include <tbvnonpara.h>
#include <time.h>

static int end_after_a_second(double share, void *data) {
    (void)share;
    return clock() - *(const clock_t *)data > CLOCKS_PER_SEC;
}

int main(void) {
    double values[400];
    tbv_options options = TBV_OPTIONS_INIT;
    tbv_result *result = NULL;
    tbv_error error;
    clock_t start = clock();
    double p, deviation;
    size_t i;
    for (i = 0; i < 400; ++i)
        values[i] = (double)(i * i % 97 + i / 40);

    options.exact_steps = 1e15;
    options.watch = end_after_a_second;
    options.watch_data = &start;
    if (tbv_mann_whitney(values, 200, values + 200, 200, &options, &result, &error) == TBV_INTERRUPTED) {
        printf("%s\n", error.text);
        options.watch = NULL;
        options.exact_steps = 0;
        options.permutations = 10000;
        options.seed = 1;
        tbv_mann_whitney(values, 200, values + 200, 200, &options, &result, &error);
    }
    if (tbv_result_number(result, "p.permutations.two", &p) == TBV_OK &&
        tbv_result_number(result, "p.permutations.two.standardError", &deviation) == TBV_OK)
        printf("P = %.3f with a standard error of %.3f\n", p, deviation);
    tbv_result_free(result);
    return 0;
}
