// Coefficient export: golden files of an antisymmetric band pass; every format
// read back by its consumer (gcc, iverilog, ghdl, python3) or parsed strictly for
// the designs in golden/ (12-bit, 20-bit, Double, 17-bit needing 18 bits); the CSV.
// ORVANA_UPDATE_GOLDEN=1 rewrites the golden files.
#include <gtest/gtest.h>

#include <algorithm>
#include <functional>
#include <numeric>

#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QProcess>
#include <QRegularExpression>
#include <QStandardPaths>
#include <QTemporaryDir>

#include "archive/atomic_write.h"
#include "archive/filter_archive.h"
#include "filter/recording_filter_view.h"
#include "project/coefficient_formats.h"
#include "project/fir_export_model.h"

namespace {

using Values = std::vector<double>;
const QString kGolden = QStringLiteral(ORVANA_TESTS_DIR "/project/golden/");

struct Case {
    QString name; // the design name the identifiers come from
    GVRFilter record;
    int bits = 0;      // 0: Double
    bool wide = false; // integers wider than the width
};

const std::vector<Case>& cases()
{
    static const std::vector<Case> all = [] {
        std::vector<Case> out;
        const std::pair<const char*, const char*> files[] = {
            {"bp_anti", "bpAnti"}, {"lp20", "lp 20-bit"}, {"double", "9 double"}, {"hp17", "hp_17__"}};
        for (const auto& [file, name] : files) {
            Case c{name, *readFilterFile(kGolden + file + ".filt")};
            c.bits = *c.record.filterWidth ? 21 - static_cast<int>(*c.record.filterWidth) : 0;
            for (std::int64_t q : *c.record.integerCoefficients)
                c.wide = c.wide || (c.bits && (q < -(1 << (c.bits - 1)) || q >= (1 << (c.bits - 1))));
            out.push_back(c);
        }
        return out;
    }();
    return all;
}

// What a consumer should read: the integers (the doubles of a Double design);
// CMSIS reversed, with a 0 in front when q15 needs an even count.
Values expected(const Case& c, CoefficientFormat format)
{
    const auto& q = *c.record.integerCoefficients;
    Values v = c.bits ? Values(q.begin(), q.end()) : *c.record.filterCoefficients;
    if (format == CoefficientFormat::Cmsis) {
        std::reverse(v.begin(), v.end());
        if (c.bits <= 16 && v.size() % 2 == 1)
            v.insert(v.begin(), 0.0);
    }
    return v;
}

Values numbers(const QString& text, const QString& pattern = QStringLiteral("(-?[0-9][0-9.e+-]*)"))
{
    Values out;
    for (const QRegularExpressionMatch& m : QRegularExpression(pattern).globalMatch(text))
        out.push_back(m.captured(1).toDouble());
    return out;
}

// Standard output of a program run in `dir`; a failure shows all it said.
QString run(const QString& dir, const QString& program, const QStringList& args)
{
    QProcess p;
    p.setWorkingDirectory(dir);
    p.start(program, args);
    p.waitForFinished(120000);
    const QByteArray out = p.readAllStandardOutput() + p.readAllStandardError();
    EXPECT_TRUE(p.exitStatus() == QProcess::NormalExit && p.exitCode() == 0)
        << program.toStdString() << ' ' << args.join(u' ').toStdString() << '\n'
        << out.toStdString();
    return QString::fromUtf8(out);
}

void write(const QString& path, const QString& text)
{
    QFile f(path);
    ASSERT_TRUE(f.open(QIODevice::WriteOnly)) << path.toStdString();
    f.write(text.toUtf8());
}

// Every case in `format`, read back by `consume` (dir, identifier, case, file text).
using Consumer = std::function<Values(const QString&, const QString&, const Case&, const QString&)>;
void checkFormat(CoefficientFormat format, const QString& tool, const Consumer& consume)
{
    if (!tool.isEmpty() && QStandardPaths::findExecutable(tool).isEmpty())
        GTEST_SKIP() << tool.toStdString() << " is not installed";
    for (const Case& c : cases()) {
        SCOPED_TRACE(c.name.toStdString());
        QString error;
        const std::optional<QByteArray> text = coefficientFileText(format, c.name, c.record, {}, &error);
        if (!coefficientFormatTakesDoubles(format) && (c.bits == 0 || c.wide)) {
            EXPECT_FALSE(text);
            EXPECT_TRUE(error.contains(c.bits ? "need 18 bits" : "Double")) << error.toStdString();
            continue;
        }
        ASSERT_TRUE(text) << error.toStdString();
        EXPECT_FALSE(text->contains('\r'));
        QTemporaryDir dir;
        EXPECT_EQ(consume(dir.path(), coefficientIdentifier(c.name), c, QString::fromUtf8(*text)),
                  expected(c, format));
    }
}

} // namespace

TEST(CoefficientFormats, GoldenFilesOfAnAntisymmetricBandPass)
{
    const Case& c = cases().front();
    ASSERT_EQ(c.record.integerCoefficients->front(), -c.record.integerCoefficients->back());
    for (const CoefficientFormatInfo& info : coefficientFormats()) {
        // ".golden" keeps formatters and linters off the expected bytes.
        const QString path = kGolden + "bp_anti_" + info.name + info.extension + ".golden";
        const std::optional<QByteArray> text = coefficientFileText(info.format, c.name, c.record);
        ASSERT_TRUE(text) << info.name;
        if (qEnvironmentVariableIsSet("ORVANA_UPDATE_GOLDEN"))
            write(path, QString::fromUtf8(*text));
        QFile golden(path);
        ASSERT_TRUE(golden.open(QIODevice::ReadOnly)) << path.toStdString();
        EXPECT_EQ(*text, golden.readAll()) << info.name;
    }
    EXPECT_EQ(coefficientIdentifier(QString::fromUtf8("__Tiefpa\xc3\x9f--2__")), "Tiefpa_2");
    EXPECT_EQ(coefficientIdentifier("---"), "filter");
}

TEST(CoefficientFormats, CHeadersCompileWithGcc)
{
    for (const CoefficientFormat format : {CoefficientFormat::C, CoefficientFormat::Cmsis})
        checkFormat(format, "gcc",
                    [&](const QString& dir, const QString& id, const Case&, const QString& text) {
                        write(dir + "/taps.h", text);
                        // Two typedefs stand in for CMSIS-DSP's header.
                        write(dir + "/arm_math.h",
                              "#include <stdint.h>\ntypedef int16_t q15_t;\ntypedef int32_t q31_t;\n");
                        write(dir + "/main.c",
                              QString("#include <stdio.h>\n#include \"taps.h\"\nint main(void) {\n"
                                      "  for (unsigned i = 0; i < sizeof %1 / sizeof %1[0]; ++i)\n"
                                      "    printf(\"%.17g\\n\", (double)%1[i]);\n  return 0;\n}\n")
                                  .arg(id + (format == CoefficientFormat::Cmsis ? "_coeffs" : "_taps")));
                        run(dir, "gcc", {"-std=c99", "-Wall", "-Wextra", "-Werror", "-o", "main", "main.c"});
                        return numbers(run(dir, dir + "/main", {}));
                    });
}

TEST(CoefficientFormats, VerilogRomReadByIverilog)
{
    checkFormat(CoefficientFormat::Verilog, "vvp",
                [](const QString& dir, const QString& id, const Case& c, const QString& text) {
                    write(dir + "/rom.v", text);
                    const QString top = QRegularExpression("\\[(\\d+):0\\] addr").match(text).captured(1);
                    write(dir + "/tb.v", "module tb;\n  reg [7:0] a;\n  wire signed [" +
                                             QString::number(c.bits - 1) + ":0] q;\n  integer i;\n  " + id +
                                             "_rom rom(.addr(a[" + top +
                                             ":0]), .coef(q));\n"
                                             "  initial for (i = 0; i < rom.TAPS; i = i + 1) begin a = i; #1 "
                                             "$display(\"%d\", q); end\nendmodule\n");
                    run(dir, "iverilog", {"-g2001", "-Wall", "-o", "tb", "rom.v", "tb.v"});
                    return numbers(run(dir, "vvp", {"-n", "tb"}));
                });
}

TEST(CoefficientFormats, VhdlPackageReportedByGhdl)
{
    checkFormat(CoefficientFormat::Vhdl, "ghdl",
                [](const QString& dir, const QString& id, const Case&, const QString& text) {
                    write(dir + "/pkg.vhd", text);
                    write(dir + "/tb.vhd",
                          QString("use work.%1_pkg.all;\nentity tb is end entity;\narchitecture a of tb is "
                                  "begin\n  process begin\n    for i in %1_coefficients'range loop report "
                                  "integer'image(%1_coefficients(i)); end loop;\n    wait;\n  end process;\n"
                                  "end architecture;\n")
                              .arg(id));
                    run(dir, "ghdl", {"-a", "--std=93", "pkg.vhd", "tb.vhd"});
                    run(dir, "ghdl", {"-e", "--std=93", "tb"});
                    return numbers(run(dir, "ghdl", {"-r", "--std=93", "tb"}), "report note\\): (-?\\d+)");
                });
}

TEST(CoefficientFormats, PythonModuleImports)
{
    checkFormat(CoefficientFormat::Python, "python3",
                [](const QString& dir, const QString&, const Case& c, const QString& text) {
                    write(dir + "/taps.py", text);
                    const Values read = numbers(run(dir, "python3",
                                                    {"-c", "import taps; print(taps.TAPS, repr(taps.SCALE), "
                                                           "*map(repr, taps.COEFFICIENTS))"}));
                    EXPECT_EQ(read.at(0), double(c.record.filterCoefficients->size()));
                    return Values(read.begin() + 2, read.end());
                });
}

TEST(CoefficientFormats, CoeMifMatlabAndJsonParseStrictly)
{
    // The whole file must match: comment lines, then the format's own lines.
    auto parse = [](const char* comment, const QString& body, const QString& text) {
        const QRegularExpressionMatch m =
            QRegularExpression(QStringLiteral("^(?:%1[^\\n]*\\n)*").arg(comment) + body + '$').match(text);
        EXPECT_TRUE(m.hasMatch()) << text.toStdString();
        return m;
    };
    checkFormat(CoefficientFormat::Coe, {}, [&](auto&, auto&, const Case&, const QString& text) {
        return numbers(parse(";", "radix=10;\\ncoefdata=\\n((?:-?\\d+,\\n)*-?\\d+;\\n)", text).captured(1));
    });
    checkFormat(CoefficientFormat::Mif, {}, [&](auto&, auto&, const Case& c, const QString& text) {
        const auto m =
            parse("--",
                  "\\nWIDTH=(\\d+);\\nDEPTH=(\\d+);\\n\\nADDRESS_RADIX=UNS;\\nDATA_RADIX=DEC;\\n\\n"
                  "CONTENT BEGIN\\n((?:    \\d+ : -?\\d+;\\n)+)END;\\n",
                  text);
        EXPECT_EQ(m.captured(1).toInt(), c.bits);
        Values addresses(m.captured(2).toULongLong()); // 0 .. DEPTH-1
        std::iota(addresses.begin(), addresses.end(), 0.0);
        EXPECT_EQ(numbers(m.captured(3), "(\\d+) : "), addresses);
        return numbers(m.captured(3), ": (-?\\d+);");
    });
    checkFormat(CoefficientFormat::Matlab, {}, [&](auto&, auto&, const Case& c, const QString& text) {
        const auto m =
            parse("%",
                  "q = \\[ \\.\\.\\.\\n((?:    [^\\n]+ \\.\\.\\.\\n)+)\\];\\nscale = ([^;\\n]+);\\n"
                  "b = q / scale;\\n",
                  text);
        EXPECT_TRUE(c.bits || m.captured(2) == "1");
        return numbers(m.captured(1).remove("..."));
    });
    checkFormat(CoefficientFormat::Json, {}, [&](auto&, auto&, const Case& c, const QString& text) {
        QJsonParseError error;
        const QJsonObject o = QJsonDocument::fromJson(text.toUtf8(), &error).object();
        EXPECT_EQ(error.error, QJsonParseError::NoError);
        EXPECT_EQ(o.keys(), QStringList({"bits", "coefficients", "design", "integers", "name",
                                         "precisionCoefficients", "scale", "taps"}));
        EXPECT_TRUE(o["name"] == c.name && o["design"].toObject().size() == 9 && o["bits"].toInt() == c.bits);
        Values v;
        for (const QJsonValue x : o[c.bits ? "integers" : "coefficients"].toArray())
            v.push_back(x.toDouble());
        return v;
    });
}

namespace {

class FirExport : public FilterFixture {
protected:
    void save(const char* name, double type, double length, double width)
    {
        design({.type = type, .cutoff = 0.1, .length = length, .width = width, .window = 2});
        ASSERT_TRUE(model.saveFilterDesignWithFileName(QLatin1String(name))) << view.note.toStdString();
    }
    static QByteArray contents(const QString& path)
    {
        QFile f(path);
        return f.open(QIODevice::ReadOnly) ? f.readAll() : QByteArray();
    }
};

} // namespace

TEST_F(FirExport, EightBitFilterGivesOneLineOfIntegers)
{
    save("lp8", 0, 25, 13); // 13 = 8-bit
    const QString csv = temp.root() + QStringLiteral("/coefficients.csv");
    QString error;
    ASSERT_TRUE(GVRFirExportModel(library).openFilterFileAndSaveCoefficientsToFile("lp8.filt", csv, &error))
        << error.toStdString();
    const QByteArray text = contents(csv);
    EXPECT_FALSE(text.contains('\n') || text.contains(' ') || text.contains('+'));
    std::vector<std::int64_t> read;
    for (const QByteArray& item : text.split(',')) {
        bool ok = false;
        read.push_back(item.toLongLong(&ok));
        EXPECT_TRUE(ok) << item.toStdString();
    }
    EXPECT_EQ(read, model.integerCoefficients());
    EXPECT_EQ(*std::max_element(read.begin(), read.end()), 127); // eight bits: full scale
    EXPECT_EQ(GVRFirExportModel::coefficientText({12, -40, 0, -40, 12}), QByteArray("12,-40,0,-40,12"));
    EXPECT_EQ(GVRFirExportModel::coefficientText({}), QByteArray());
}

TEST_F(FirExport, DoubleWidthAndUnreadableFilesWriteNothing)
{
    save("dbl", 0, 25, 0);
    const QString csv = temp.root() + QStringLiteral("/out.csv");
    ASSERT_TRUE(writeFileAtomically(csv, QByteArray("keep me")));
    GVRFirExportModel exporter(library);
    QString error;
    EXPECT_FALSE(exporter.openFilterFileAndSaveCoefficientsToFile("dbl.filt", csv, &error));
    EXPECT_EQ(error,
              QStringLiteral("Filter Coefficient Width must be an Integer Value\n(Not Floating Point)"));
    EXPECT_EQ(error, GVRFirExportModel::integerWidthAlert());

    ASSERT_TRUE(writeFileAtomically(library.filterPath(QStringLiteral("junk")), QByteArray("junk")));
    error.clear();
    EXPECT_FALSE(exporter.openFilterFileAndSaveCoefficientsToFile("junk.filt", csv, &error));
    EXPECT_FALSE(error.isEmpty());
    EXPECT_FALSE(exporter.openFilterFileAndSaveCoefficientsToFile("absent.filt", csv));
    EXPECT_FALSE(exporter.openFilterFileAndSaveCoefficientsToFile("../x.filt", csv));
    EXPECT_EQ(contents(csv), QByteArray("keep me"));

    // A folder that does not exist: the failure is reported.
    save("int", 0, 25, 5);
    error.clear();
    EXPECT_FALSE(exporter.openFilterFileAndSaveCoefficientsToFile(
        "int.filt", temp.root() + "/no/such/folder/out.csv", &error));
    EXPECT_FALSE(error.isEmpty());
}

// Rows in folder order with name, type, length and width only; an unreadable file shows its name.
TEST_F(FirExport, RowsCarryTheFileNameTypeLengthAndWidth)
{
    save("a", 1, 61, 9);
    save("b", 2, 27, 0);
    ASSERT_TRUE(writeFileAtomically(library.filterPath(QStringLiteral("c")), QByteArray("junk")));
    QStringList cells;
    for (const GVRInspectFilt& row : GVRFirExportModel(library).getFirExportFileArray()) {
        for (const QString& key : GVRInspectFilt::keys())
            if (!row.value(key).isEmpty())
                cells << key + '=' + row.value(key);
    }
    EXPECT_EQ(cells, (QStringList{"filename=a.filt", "filter=Band Pass", "width=12-bit", "length=61",
                                  "filename=b.filt", "filter=High Pass", "width=Double", "length=27",
                                  "filename=c.filt"}));
}
