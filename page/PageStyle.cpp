#include "page/PageStyle.h"

#include "page/Ink.h"

namespace ZYN::Page {

namespace {

QString Variables(QRgb InkColour::*theme)
{
    QString text;
    for (const InkColour& colour : inkColours)
        text += QStringLiteral("%1:#%2;")
                    .arg(QLatin1String(colour.variable))
                    .arg(colour.*theme & 0xffffff, 6, 16, QLatin1Char('0'));
    return text;
}

constexpr const char* rules = R"css(
*{box-sizing:border-box}
body{margin:0 auto;max-width:1180px;padding:24px 20px 60px;background:var(--page);color:var(--text);
 font:15px/1.5 system-ui,-apple-system,"Segoe UI",Roboto,"DejaVu Sans",sans-serif}
h1{font-size:1.9em;line-height:1.2;margin:.2em 0 .1em;overflow-wrap:anywhere}
h2{font-size:1.35em;margin:1.8em 0 .5em;overflow-wrap:anywhere}
.h{font-size:1.05em;margin:1.6em 0 .5em;overflow-wrap:anywhere}
p{margin:.3em 0}.source,.hint,caption{color:var(--faint)}
a{color:var(--good);text-decoration:none}a:hover,a:focus{text-decoration:underline}
:focus-visible{outline:2px solid var(--mark);outline-offset:2px}
.cards{display:grid;grid-template-columns:repeat(auto-fit,minmax(150px,1fr));gap:12px;margin:14px 0;padding:0;list-style:none}
.cards li{background:var(--card);border:1px solid var(--grid);border-radius:10px;padding:12px 16px}
.cards b{display:block;font-size:1.9em;line-height:1.25;font-weight:650;font-variant-numeric:tabular-nums}
.cards span{color:var(--faint);display:block}
.cards .bad b{color:var(--bad)}
.two{display:grid;grid-template-columns:repeat(auto-fit,minmax(min(100%,440px),1fr));gap:8px 28px}
.two svg{max-width:640px}
.scroll{overflow-x:auto}
table{border-collapse:collapse;width:100%;font-variant-numeric:tabular-nums}
caption{text-align:left;padding:4px 0}
th,td{padding:5px 14px 5px 0;border-bottom:1px solid var(--grid);text-align:left;vertical-align:top}
th{font-weight:600}thead th{color:var(--faint);font-weight:500;white-space:nowrap}
.n{text-align:right;white-space:nowrap}tbody th{overflow-wrap:anywhere;min-width:12em}
.bad{color:var(--bad)}
.look{border:1px solid var(--mark);border-left-width:6px;border-radius:10px;background:var(--card);padding:4px 18px 12px}
.look .h{margin-top:.8em}
details{border-bottom:1px solid var(--grid);padding:6px 0}
summary{cursor:pointer;overflow-wrap:anywhere}summary span{color:var(--faint);margin-left:.7em}
.plots{display:grid;grid-template-columns:minmax(0,4fr) minmax(0,7fr);gap:6px 20px;margin:10px 0}
.pan{overflow-x:auto}
@media screen and (max-width:760px){.plots{grid-template-columns:minmax(0,1fr)}.pan svg{min-width:500px}tbody th{min-width:11em}}
circle{fill:transparent}a:focus circle,a:hover circle{stroke:var(--bad);stroke-width:1.5}
.facts{display:flex;flex-wrap:wrap;gap:2px 28px;margin:.6em 0;padding:0;list-style:none}.facts li{overflow-wrap:anywhere;min-width:0}
.facts span{display:block;color:var(--faint);font-size:.87em}
.wafers{display:grid;grid-template-columns:repeat(auto-fill,minmax(160px,1fr));gap:16px}figure{margin:0}figcaption{color:var(--faint)}
tr:target{background:var(--card);outline:2px solid var(--mark)}
svg{display:block;width:100%;height:auto;font:11px system-ui,"DejaVu Sans",sans-serif}
.map{border-collapse:separate;border-spacing:4px;width:min(100%,27em)}
.map td{border:0;border-radius:6px;padding:8px 12px;min-width:84px;text-align:center;background:var(--card);border:1px solid var(--grid)}
.map b{display:block}.map .worst{border-color:var(--bad)}.map .worst b{color:var(--bad)}.map td:empty{visibility:hidden}
)css";

constexpr const char* printRules = R"css(
@media print{body{max-width:none;padding:0;font-size:11px}
 details::details-content{content-visibility:visible!important;display:block!important;height:auto!important}
 details>*{display:block!important}summary{list-style:none}
 .two{grid-template-columns:1fr 1fr}.cards{grid-template-columns:repeat(6,1fr);gap:6px}.cards li{padding:6px 8px}
 .plots{grid-template-columns:minmax(0,4fr) minmax(0,7fr)}.pan{overflow:visible}article+article{break-before:page}
 svg,tr,li,details,section,.plots{break-inside:avoid}.look{break-inside:auto}h2,.h,.h+.hint,.look p{break-after:avoid}.scroll{overflow:visible}
 a{color:inherit}thead{display:table-header-group}}
)css";

// A class of lines and one of areas and texts for each ink.
QString Inks()
{
    QString text = QStringLiteral("\n");
    for (const InkColour& colour : inkColours)
        text += QStringLiteral("svg .s-%1{fill:none;stroke:var(%2)}svg .f-%1{fill:var(%2);stroke:none}\n")
                    .arg(QLatin1String(colour.variable + 2), QLatin1String(colour.variable));
    return text;
}

} // namespace

QString StyleSheet()
{
    const QString light =
        Variables(&InkColour::light) + QStringLiteral("--page:#fff;--card:#f7f9fb;color-scheme:light");
    const QString dark =
        Variables(&InkColour::dark) + QStringLiteral("--page:#12171d;--card:#1a212a;color-scheme:dark");
    return QStringLiteral(":root{%1}\n@media screen and (prefers-color-scheme:dark){:root{%2}}")
               .arg(light, dark) +
           QLatin1String(rules) + Inks() + QLatin1String(printRules);
}

} // namespace ZYN::Page
