// Drives the registered server from the other script language, on a peer application in this process.
function fail(what) {
    WScript.Echo("FAILED: " + what);
    WScript.Quit(1);
}

function expect(what, found, wanted) {
    if (found !== wanted) {
        fail(what + ": \"" + found + "\" instead of \"" + wanted + "\"");
    }
}

function numberOf(action) {
    try {
        action();
    } catch (error) {
        return error.number;
    }
    return 0;
}

function newRequest(method) {
    var request = new ActiveXObject("TBVNonPara.clsNonPara");
    request.Method = method;
    request.Headers = true;
    return request;
}

var application = new ActiveXObject("TBVPeer.InProcess");
application.AddSheet("Data");
var rows = [["a", "b", "s", "g"], [1, 4.5, 1, 1], [2, 5, -1, 1], [3.5, 6, 1, 2], [3, 2.5, 0, 2], [5, 9, 1, 2]];
for (var row = 0; row < rows.length; row++) {
    for (var column = 0; column < 4; column++) {
        application.Range("Data!A1").Cells(row + 1, column + 1).Value = rows[row][column];
    }
}
expect("hook", application.Hook(), 0);

var reports = [
    ["Data!A1:A6", "Data!B1:B6", "Mann-Whitney Test Results for:"],
    ["Data!A1:A6", "Data!B1:B6", "Wilcoxon Paired-Sample Test Results for:"],
    ["Data!A1:A6", "Data!B1:B6", "Spearman Rank Correlation Results for:"],
    ["Data!A1:A6", "Data!B1:B6", "Sign Test Results for:"],
    ["Data!A1:B6", "", "Mood Median Test Results for:"],
    ["Data!A1:C6", "", "Friedman Test Results for:"],
    ["Data!A1:B6", "", "Kruskal-Wallis Test Results for:"],
    ["Data!D1:D6", "", "Wald-Wolfowitz Runs Test Results for:"]
];
for (var method = 0; method < reports.length; method++) {
    var made = newRequest(method);
    made.Tails = 0;
    made.OutputDescriptives = true;
    made.IgnoreTies = true;
    made.YRange = reports[method][0];
    made.XRange = reports[method][1];
    made.OutputRange = "Data!J1";
    made.Results(true);
    expect("report", application.Range("Data!J1").Value, reports[method][2]);
}

var request = newRequest(0);
request.YRange = "Data!A1:A6";
request.XRange = "Data!B1:B6";
request.OutputRange = "Data!J1";
var occupied = -2147216473;
expect("left out", numberOf(function () { request.Results(); }), occupied);
expect("false", numberOf(function () { request.Results(false); }), occupied);
expect("undefined", numberOf(function () { request.Results(undefined); }), occupied);
expect("true", numberOf(function () { request.Results(true); }), 0);
expect("too many", numberOf(function () { request.Results(true, true); }) === 0, false);
expect("no data", numberOf(function () { newRequest(0).Results(); }), -2147216493);
expect("YRange", numberOf(function () { request.YRange = "Nowhere!A1"; }), -2147216495);
expect("XRange", numberOf(function () { request.XRange = "Nowhere!A1"; }), -2147216494);
expect("OutputRange", numberOf(function () { request.OutputRange = "Nowhere!A1"; }), -2147216503);
expect("YRange empty", numberOf(function () { request.YRange = ""; }), -2147216493);

// What each setting and each run comes to: method, YRange, XRange, and the numbers of the two and of Results.
// Runtime errors have the numbers of their statuses here.
var refusals = [
    ["two columns of data", 0, "Data!A1:B6", "", -2147216452, 0, 0],
    ["two columns of the second", 0, "Data!A1:A6", "Data!A1:B6", 0, -2147216451, 0],
    ["one group", 6, "Data!A1:A6", "", -2147216456, 0, 0],
    ["no second range", 2, "Data!A1:A6", "", 0, 0, -2147216492],
    ["unequal pairs", 1, "Data!A1:A6", "Data!B1:B5", 0, 0, -2147216486],
    ["one row", 7, "Data!A1:A2", "", 0, 0, -2147216454],
    ["codes", 3, "Data!A1:A6", "", 0, 0, -2147215504],
    ["no report", 8, "Data!A1:A6", "", 0, 0, 0x800A005B - 0x100000000]
];
for (var k = 0; k < refusals.length; k++) {
    var refusal = refusals[k];
    var refused = newRequest(refusal[1]);
    expect(refusal[0], numberOf(function () { refused.YRange = refusal[2]; }), refusal[4]);
    expect(refusal[0], numberOf(function () { refused.XRange = refusal[3]; }), refusal[5]);
    if (refusal[6] !== 0) {
        expect(refusal[0], numberOf(function () { refused.Results(); }), refusal[6]);
    }
}

// Details: figures by name, wrong names, a place left out.
var details = new ActiveXObject("TBVNonPara.clsNonParaDetails");
details.Headers = true;
details.YRange = "Data!A1:A6";
details.XRange = "Data!B1:B6";
details.Adjust = "bonferroni";
details.Control = "";
details.Trend = false;
expect("before", numberOf(function () { return details.Value("data.n.1"); }), 0x800A005B - 0x100000000);
details.Calculate();
expect("figure", details.Value("data.n.1"), 5);
expect("label", details.Value("labels.2"), "b");
expect("wrong name", numberOf(function () { return details.Value("data.m"); }), 0x800A0005 - 0x100000000);
expect("text", details.Text.substr(0, 7), "Details");
expect("json", details.Json.indexOf('"test": "mann-whitney"') >= 0, true);
expect("read", numberOf(function () { return details.Confidence; }) === 0, false);
details.OutputRange = "Data!R1";
details.WriteTo(undefined, true);
expect("written", application.Range("Data!R1").Value, "Details");
expect("occupied", numberOf(function () { details.WriteTo("Data!R1"); }), occupied);
expect("confidence", numberOf(function () { details.Confidence = 0.95; }), 0x800A0005 - 0x100000000);

application.Unhook();
WScript.Echo("passed");
