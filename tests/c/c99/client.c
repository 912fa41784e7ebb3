/* All of the interface as a client in C99 uses it. Prints what does not hold. */
#include <math.h>
#include <stdio.h>
#include <string.h>
#include <tbvnonpara.h>

static int failures = 0;

static void expect(int holds, const char *what, int line) {
    if (!holds) {
        printf("line %d: %s does not hold\n", line, what);
        ++failures;
    }
}
#define EXPECT(condition) expect(condition, #condition, __LINE__)

static int is_near(double value, double expected) { return fabs(value - expected) < 1e-12; }

/* The figure of a result that the test gave, which is then gone; NaN where there is none. */
static double figure(tbv_status status, tbv_result *result, const char *name) {
    double number = 0;
    EXPECT(status == TBV_OK);
    EXPECT(status != TBV_OK || tbv_result_number(result, name, &number) == TBV_OK);
    tbv_result_free(result);
    return number;
}

static const double low[] = {1, 2, 3};
static const double high[] = {4, 5, 6};
static const double doubled[] = {2, 4, 6};

/* All probabilities are counts of arrangements that a reader can list. */
static void samples(void) {
    static const int codes[] = {7, 7, -7, -7};
    static const double numbers[] = {0.5, 0.5, 1.5, 1.5};
    tbv_result *r = NULL;
    tbv_status s = tbv_mann_whitney(low, 3, high, 3, NULL, &r, NULL);
    EXPECT(is_near(figure(s, r, "p.exact.two"), 2.0 / 20));
    s = tbv_wilcoxon(low, doubled, 3, NULL, &r, NULL);
    EXPECT(is_near(figure(s, r, "p.zerosLeftOut.exact.two"), 2.0 / 8));
    s = tbv_spearman(low, doubled, 3, NULL, &r, NULL);
    EXPECT(is_near(figure(s, r, "p.exact.two"), 2.0 / 6));
    s = tbv_sign(low, doubled, 3, NULL, &r, NULL);
    EXPECT(is_near(figure(s, r, "p.exact.two"), 2.0 / 8));
    s = tbv_sign_codes(low, 3, NULL, &r, NULL);
    EXPECT(is_near(figure(s, r, "p.exact.greater"), 1.0 / 8));
    s = tbv_runs(codes, 4, NULL, &r, NULL);
    EXPECT(is_near(figure(s, r, "p.exact.fewer"), 2.0 / 6));
    s = tbv_runs_numbers(numbers, 4, NULL, &r, NULL);
    EXPECT(is_near(figure(s, r, "p.exact.fewer"), 2.0 / 6));
}

static void groups(void) {
    const double *several[3];
    size_t sizes[3] = {2, 2, 2};
    tbv_result *r = NULL;
    tbv_status s;
    several[0] = low;      /* 1 2 */
    several[1] = low + 1;  /* 2 3 */
    several[2] = high + 1; /* 5 6 */
    s = tbv_friedman(several, 3, 2, NULL, &r, NULL);
    EXPECT(is_near(figure(s, r, "p.exact.p"), 6.0 / 36));
    several[0] = low;
    several[1] = high;
    sizes[0] = sizes[1] = 3;
    s = tbv_median(several, sizes, 2, NULL, &r, NULL);
    EXPECT(is_near(figure(s, r, "p.exact.p"), 2.0 / 20));
    s = tbv_kruskal_wallis(several, sizes, 2, NULL, &r, NULL);
    EXPECT(is_near(figure(s, r, "p.exact.p"), 2.0 / 20));
}

static void options(void) {
    const double holes[] = {1, NAN, 2, 3};
    tbv_options chosen = TBV_OPTIONS_INIT;
    tbv_options same;
    tbv_result *r = NULL;
    tbv_status s;
    tbv_options_init(&same, sizeof same);
    EXPECT(memcmp(&same, &chosen, sizeof same) == 0);
    chosen.missing = TBV_MISSING_OMIT;
    chosen.confidence = 0.8;
    s = tbv_mann_whitney(holes, 4, high, 3, &chosen, &r, NULL);
    EXPECT(figure(s, r, "data.missing") == 1);
    s = tbv_mann_whitney(holes, 4, high, 3, &chosen, &r, NULL);
    EXPECT(figure(s, r, "level") == 0.8);
}

/* Ends the count; data has how often it was asked. */
static int stop(double share, void *data) {
    EXPECT(share > 0 && share < 1);
    ++*(int *)data;
    return 1;
}

static void watch(void) {
    static double many[300];
    tbv_options chosen = TBV_OPTIONS_INIT;
    tbv_result *r = NULL;
    tbv_error error;
    int asked = 0;
    size_t i;
    for (i = 0; i < 300; ++i)
        many[i] = (double)(i * i % 97);
    chosen.exact_steps = 1e15;
    chosen.watch = stop;
    chosen.watch_data = &asked;
    EXPECT(tbv_mann_whitney(many, 150, many + 150, 150, &chosen, &r, &error) == TBV_INTERRUPTED);
    EXPECT(strcmp(error.text, tbv_status_text(TBV_INTERRUPTED)) == 0);
    EXPECT(r == NULL && asked == 1);
}

static void permutations(void) {
    tbv_options chosen = TBV_OPTIONS_INIT;
    tbv_result *r = NULL;
    tbv_status s;
    chosen.exact_steps = 0;
    chosen.permutations = 99;
    chosen.seed = 5;
    s = tbv_mann_whitney(low, 3, high, 3, &chosen, &r, NULL);
    EXPECT(figure(s, r, "p.permutations.arrangements") == 99);
    s = tbv_kruskal_wallis((const double *const[]){low, high}, (const size_t[]){3, 3}, 2, &chosen, &r, NULL);
    EXPECT(figure(s, r, "p.permutations.seed") == 5);
}

static void errors(void) {
    const double holes[] = {1, NAN};
    tbv_result *r = NULL;
    tbv_error error;
    EXPECT(tbv_mann_whitney(holes, 2, high, 3, NULL, &r, &error) == TBV_BAD_DATA);
    EXPECT(strcmp(error.text, "Value 2 of the first sample is not a number.") == 0);
    EXPECT(r == NULL);
    EXPECT(tbv_mann_whitney(NULL, 2, high, 3, NULL, &r, &error) == TBV_BAD_ARGUMENT);
    EXPECT(strcmp(error.text, "first is a null pointer.") == 0);
    tbv_result_free(NULL);
}

static void results(void) {
    tbv_result *r = NULL;
    const char *text = NULL;
    size_t count = 0;
    EXPECT(tbv_mann_whitney(low, 3, high, 3, NULL, &r, NULL) == TBV_OK);
    EXPECT(tbv_result_text(r, "p.method", &text) == TBV_OK && strcmp(text, "exact") == 0);
    EXPECT(tbv_result_count(r, "groups", &count) == TBV_OK && count == 2);
    EXPECT(strstr(tbv_result_json(r), "\"test\": \"mann-whitney\"") != NULL);
    tbv_result_free(r);
    EXPECT(strlen(tbv_version()) > 0);
}

int main(void) {
    samples();
    groups();
    options();
    watch();
    permutations();
    errors();
    results();
    return failures != 0;
}
