// Coefficient formats: byte-for-byte golden files of a fixed antisymmetric band
// pass, and every format read back by the tool a user feeds it (gcc, iverilog,
// ghdl, python3) or parsed strictly, for integer, wide-integer and Double designs.
// ORVANA_UPDATE_GOLDEN=1 rewrites the golden files from the current writers.
#include <gtest/gtest.h>

#include <algorithm>
#include <functional>

#include <QFile>
#include <QFileInfo>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QProcess>
#include <QRegularExpression>
#include <QStandardPaths>
#include <QTemporaryDir>

#include "archive/filter_archive.h"
#include "filter/filter_designer_model.h"
#include "filter/filter_keys.h"
#include "library/design_library.h"
#include "project/coefficient_formats.h"
#include "support/temp_library.h"

namespace {

using Values = std::vector<double>;
const QString kGolden = QFileInfo(QStringLiteral(__FILE__)).absolutePath() + QStringLiteral("/golden/");

struct Case {
    QString name;
    GVRFilter record;
    int bits = 0;      // 0: Double
    bool wide = false; // integers wider than the width
};

Case makeCase(const QString& name, const GVRFilter& r)
{
    Case c{name, r, r.filterWidth == 0 ? 0 : 21 - static_cast<int>(*r.filterWidth)};
    for (std::int64_t q : c.bits ? *r.integerCoefficients : std::vector<std::int64_t>{})
        c.wide = c.wide || q < -(std::int64_t{1} << (c.bits - 1)) || q >= (std::int64_t{1} << (c.bits - 1));
    return c;
}

// The golden band pass, a 20-bit low pass, a Double band pass and a high pass whose 17-bit
// integers need 18 bits.
const std::vector<Case>& cases()
{
    static const std::vector<Case> all = [] {
        std::vector<Case> out{makeCase(QStringLiteral("bpAnti"), *readFilterFile(kGolden + "bp_anti.filt"))};
        TempLibrary temp;
        DesignLibrary library(temp.root());
        library.ensureFolders();
        GVRFilterDesignerModel model;
        model.setLibrary(&library);
        const struct {
            const char* name;
            int type, width, window;
            double cutoff;
        } designs[] = {{"lp 20-bit", 0, 1, 2, 0.2}, {"9 double", 1, 0, 3, 0.1}, {"hp_17__", 2, 4, 0, 0.5}};
        for (const auto& d : designs) {
            model.designFilterWithParameters({{KEYFP_UNITS, 0},
                                              {KEYFP_FILTER_TYPE, d.type},
                                              {KEYFP_SAMPLING_FREQ, 0.0},
                                              {KEYFP_CUTOFF_FREQ, d.cutoff},
                                              {KEYFP_CENTER_FREQ, 0.5},
                                              {KEYFP_FILTER_LENGTH, 41},
                                              {KEYFP_FILTER_WIDTH, d.width},
                                              {KEYFP_WINDOW_TYPE, d.window},
                                              {KEYFP_BETA_UPSILON, 0.0}});
            model.saveFilterDesignWithFileName(QString::fromLatin1(d.name));
            out.push_back(makeCase(d.name, *readFilterFile(library.filterPath(QString::fromLatin1(d.name)))));
        }
        return out;
    }();
    return all;
}

// What a consumer should read: the integers (the doubles of a Double design);
// CMSIS reversed, with a 0 in front when q15 needs an even count.
Values expected(const Case& c, CoefficientFormat format)
{
    Values v = c.bits ? Values(c.record.integerCoefficients->begin(), c.record.integerCoefficients->end())
                      : *c.record.filterCoefficients;
    if (format == CoefficientFormat::Cmsis) {
        std::reverse(v.begin(), v.end());
        if (c.bits <= 16 && v.size() % 2 == 1)
            v.insert(v.begin(), 0.0);
    }
    return v;
}

Values numbers(const QString& text,
               const QRegularExpression& pattern = QRegularExpression(QStringLiteral("-?[0-9][0-9.e+-]*")))
{
    Values out;
    for (const QRegularExpressionMatch& m : pattern.globalMatch(text))
        out.push_back(m.captured(m.lastCapturedIndex()).toDouble());
    return out;
}

// Runs a program in `dir`; its standard output, or a failure with everything it said.
QString run(const QString& dir, const QString& program, const QStringList& args)
{
    QProcess p;
    p.setWorkingDirectory(dir);
    p.start(program, args);
    p.waitForFinished(120000);
    const QByteArray out = p.readAllStandardOutput(), err = p.readAllStandardError();
    EXPECT_TRUE(p.exitStatus() == QProcess::NormalExit && p.exitCode() == 0)
        << program.toStdString() << ' ' << args.join(u' ').toStdString() << '\n'
        << (out + err).toStdString();
    return QString::fromUtf8(out + err);
}

void write(const QString& path, const QByteArray& text)
{
    QFile f(path);
    ASSERT_TRUE(f.open(QIODevice::WriteOnly)) << path.toStdString();
    f.write(text);
}

// Every case in `format`, read back by `consume` (dir, identifier, case, file text).
using Consumer = std::function<Values(const QString&, const QString&, const Case&, const QString&)>;
void checkFormat(CoefficientFormat format, const QString& tool, const Consumer& consume)
{
    if (!tool.isEmpty() && QStandardPaths::findExecutable(tool).isEmpty())
        GTEST_SKIP() << tool.toStdString() << " is not installed";
    const bool fixedWidth = !coefficientFormatTakesDoubles(format);
    for (const Case& c : cases()) {
        SCOPED_TRACE(c.name.toStdString());
        QString error;
        const std::optional<QByteArray> text = coefficientFileText(format, c.name, c.record, {}, &error);
        if (fixedWidth && (c.bits == 0 || c.wide)) {
            EXPECT_FALSE(text);
            EXPECT_TRUE(error.contains(c.bits ? QStringLiteral("need 18 bits") : QStringLiteral("Double")))
                << error.toStdString();
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
        const QString path = kGolden + "bp_anti_" + info.name + info.extension;
        const std::optional<QByteArray> text = coefficientFileText(info.format, c.name, c.record);
        ASSERT_TRUE(text) << info.name;
        if (qEnvironmentVariableIsSet("ORVANA_UPDATE_GOLDEN"))
            write(path, *text);
        QFile golden(path);
        ASSERT_TRUE(golden.open(QIODevice::ReadOnly)) << path.toStdString();
        EXPECT_EQ(*text, golden.readAll()) << info.name;
    }
}

TEST(CoefficientFormats, IdentifiersFromDesignNames)
{
    const std::pair<const char*, const char*> table[] = {
        {"bpAnti", "bpAnti"}, {"lp 20-bit", "lp_20_bit"}, {"9 double", "f_9_double"},
        {"hp_17__", "hp_17"}, {"__x--y__", "x_y"},        {"Tiefpa\xc3\x9f 2", "Tiefpa_2"},
        {"---", "filter"}};
    for (const auto& [name, id] : table)
        EXPECT_EQ(coefficientIdentifier(QString::fromUtf8(name)), QString::fromLatin1(id)) << name;
}

TEST(CoefficientFormats, CHeadersCompileWithGcc)
{
    for (const CoefficientFormat format : {CoefficientFormat::C, CoefficientFormat::Cmsis})
        checkFormat(format, QStringLiteral("gcc"),
                    [&](const QString& dir, const QString& id, const Case&, const QString& text) {
                        const bool cmsis = format == CoefficientFormat::Cmsis;
                        write(dir + "/taps.h", text.toUtf8());
                        // Two typedefs stand in for CMSIS-DSP's header.
                        write(dir + "/arm_math.h",
                              "#include <stdint.h>\ntypedef int16_t q15_t;\ntypedef int32_t q31_t;\n");
                        const QString table = id + (cmsis ? "_coeffs" : "_taps");
                        write(dir + "/main.c",
                              ("#include <stdio.h>\n#include \"taps.h\"\nint main(void) {\n"
                               "  for (unsigned i = 0; i < sizeof " +
                               table + " / sizeof " + table + "[0]; ++i) printf(\"%.17g\\n\", (double)" +
                               table + "[i]);\n  return 0;\n}\n")
                                  .toUtf8());
                        run(dir, "gcc", {"-std=c99", "-Wall", "-Wextra", "-Werror", "-o", "main", "main.c"});
                        return numbers(run(dir, dir + "/main", {}));
                    });
}

TEST(CoefficientFormats, VerilogRomReadByIverilog)
{
    if (QStandardPaths::findExecutable("vvp").isEmpty())
        GTEST_SKIP() << "vvp is not installed";
    checkFormat(
        CoefficientFormat::Verilog, QStringLiteral("iverilog"),
        [](const QString& dir, const QString& id, const Case& c, const QString& text) {
            write(dir + "/rom.v", text.toUtf8());
            const QString n = QString::number(c.record.integerCoefficients->size());
            write(dir + "/tb.v",
                  QStringLiteral("module tb;\n  reg [7:0] a;\n  wire signed [%1:0] q;\n  integer i;\n"
                                 "  %2_rom rom(.addr(a[%3:0]), .coef(q));\n  initial for (i = 0; i < %4;"
                                 " i = i + 1) begin a = i; #1 $display(\"%d\", q); end\nendmodule\n")
                      .arg(c.bits - 1)
                      .arg(id)
                      .arg(QRegularExpression(QStringLiteral("\\[(\\d+):0\\] addr")).match(text).captured(1))
                      .arg(n)
                      .toUtf8());
            run(dir, "iverilog", {"-g2001", "-Wall", "-o", "tb", "rom.v", "tb.v"});
            return numbers(run(dir, "vvp", {"-n", "tb"}));
        });
}

TEST(CoefficientFormats, VhdlPackageReportedByGhdl)
{
    checkFormat(
        CoefficientFormat::Vhdl, QStringLiteral("ghdl"),
        [](const QString& dir, const QString& id, const Case&, const QString& text) {
            write(dir + "/pkg.vhd", text.toUtf8());
            write(dir + "/tb.vhd",
                  QStringLiteral("use work.%1_pkg.all;\nentity tb is end entity;\narchitecture a of tb"
                                 " is begin\n  process begin\n    for i in %1_coefficients'range loop"
                                 " report integer'image(%1_coefficients(i)); end loop;\n    wait;\n"
                                 "  end process;\nend architecture;\n")
                      .arg(id)
                      .toUtf8());
            for (const QStringList& args :
                 {QStringList{"-a", "--std=93", "pkg.vhd", "tb.vhd"}, QStringList{"-e", "--std=93", "tb"}})
                run(dir, "ghdl", args);
            return numbers(run(dir, "ghdl", {"-r", "--std=93", "tb"}),
                           QRegularExpression(QStringLiteral("report note\\): (-?\\d+)")));
        });
}

TEST(CoefficientFormats, PythonModuleImports)
{
    checkFormat(CoefficientFormat::Python, QStringLiteral("python3"),
                [](const QString& dir, const QString&, const Case& c, const QString& text) {
                    write(dir + "/taps.py", text.toUtf8());
                    const QString out = run(dir, "python3",
                                            {"-c", "import taps; print(taps.TAPS, repr(taps.SCALE)); "
                                                   "print(*map(repr, taps.COEFFICIENTS))"});
                    const Values read = numbers(out);
                    EXPECT_EQ(read.at(0), double(c.record.filterCoefficients->size()));
                    return Values(read.begin() + 2, read.end());
                });
}

TEST(CoefficientFormats, CoeMifMatlabAndJsonParseStrictly)
{
    const QString head = QStringLiteral("^(?:(?:%1)[^\\n]*\\n)*");
    checkFormat(
        CoefficientFormat::Coe, {}, [&](const QString&, const QString&, const Case&, const QString& text) {
            EXPECT_TRUE(QRegularExpression(head.arg(";") + "radix=10;\\ncoefdata=\\n(-?\\d+,\\n)*-?\\d+;\\n$")
                            .match(text)
                            .hasMatch());
            return numbers(text.section("coefdata=", 1));
        });
    checkFormat(
        CoefficientFormat::Mif, {}, [&](const QString&, const QString&, const Case& c, const QString& text) {
            const QRegularExpressionMatch m =
                QRegularExpression(head.arg("--") +
                                   "\\nWIDTH=(\\d+);\\nDEPTH=(\\d+);\\n\\nADDRESS_RADIX=UNS;\\n"
                                   "DATA_RADIX=DEC;\\n\\nCONTENT BEGIN\\n((    \\d+ : -?\\d+;\\n)+)END;\\n$")
                    .match(text);
            EXPECT_EQ(m.captured(1).toInt(), c.bits);
            const Values rows = numbers(m.captured(3), QRegularExpression(QStringLiteral("(\\d+) : ")));
            for (std::size_t i = 0; i < rows.size(); ++i)
                EXPECT_EQ(rows[i], double(i));
            EXPECT_EQ(m.captured(2).toULongLong(), rows.size());
            return numbers(m.captured(3), QRegularExpression(QStringLiteral(": (-?\\d+);")));
        });
    checkFormat(CoefficientFormat::Matlab, {},
                [&](const QString&, const QString&, const Case& c, const QString& text) {
                    const QRegularExpressionMatch m =
                        QRegularExpression(head.arg("%") +
                                           "q = \\[ \\.\\.\\.\\n((    [^\\n]+ \\.\\.\\.\\n)+)\\];\\n"
                                           "scale = ([^;\\n]+);\\nb = q / scale;\\n$")
                            .match(text);
                    EXPECT_TRUE(m.hasMatch());
                    EXPECT_TRUE(c.bits != 0 || m.captured(3) == "1");
                    return numbers(QString(m.captured(1)).remove("..."));
                });
    checkFormat(CoefficientFormat::Json, {},
                [&](const QString&, const QString&, const Case& c, const QString& text) {
                    QJsonParseError error;
                    const QJsonObject o = QJsonDocument::fromJson(text.toUtf8(), &error).object();
                    EXPECT_EQ(error.error, QJsonParseError::NoError);
                    EXPECT_EQ(o.keys(), QStringList({"bits", "coefficients", "design", "integers", "name",
                                                     "precisionCoefficients", "scale", "taps"}));
                    EXPECT_EQ(o["name"].toString(), c.name);
                    EXPECT_EQ(o["design"].toObject().size(), 9);
                    EXPECT_EQ(o["bits"].toInt(), c.bits);
                    Values v;
                    for (const QJsonValue x : o[c.bits ? "integers" : "coefficients"].toArray())
                        v.push_back(x.toDouble());
                    return v;
                });
}
