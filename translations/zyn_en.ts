<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="en" sourcelanguage="en">
<context>
    <name>stdf</name>
    <message numerus="yes">
        <source>PRR: NUM_TEST is %1, the part has %n tests</source>
        <translation>
            <numerusform>PRR: NUM_TEST is %1, the part has %n test</numerusform>
            <numerusform>PRR: NUM_TEST is %1, the part has %n tests</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>PCR: PART_CNT is %1, there are %n parts</source>
        <translation>
            <numerusform>PCR: PART_CNT is %1, there is %n part</numerusform>
            <numerusform>PCR: PART_CNT is %1, there are %n parts</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>PCR: GOOD_CNT is %1, only %n parts have passed</source>
        <translation>
            <numerusform>PCR: GOOD_CNT is %1, only %n part has passed</numerusform>
            <numerusform>PCR: GOOD_CNT is %1, only %n parts have passed</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n records of the unknown type %1, subtype %2</source>
        <translation>
            <numerusform>%n record of the unknown type %1, subtype %2</numerusform>
            <numerusform>%n records of the unknown type %1, subtype %2</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>and more: %n faults in all</source>
        <translation>
            <numerusform>and more: %n fault in all</numerusform>
            <numerusform>and more: %n faults in all</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n bytes follow the last field</source>
        <translation>
            <numerusform>%n byte follows the last field</numerusform>
            <numerusform>%n bytes follow the last field</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n parts</source>
        <translation>
            <numerusform>%n part</numerusform>
            <numerusform>%n parts</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%1: the count of bin %2 is %3, only %n parts are in it</source>
        <translation>
            <numerusform>%1: the count of bin %2 is %3, only %n part is in it</numerusform>
            <numerusform>%1: the count of bin %2 is %3, only %n parts are in it</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n records have texts beyond ASCII, first %1: they are read as Latin-1, and some other readers give up on them</source>
        <translation>
            <numerusform>%n record has texts beyond ASCII, first %1: they are read as Latin-1, and some other readers give up on them</numerusform>
            <numerusform>%n records have texts beyond ASCII, first %1: they are read as Latin-1, and some other readers give up on them</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>and more: %n remarks in all</source>
        <translation>
            <numerusform>and more: %n remark in all</numerusform>
            <numerusform>and more: %n remarks in all</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>zyn</name>
    <message numerus="yes">
        <source>binning definition, %n bins</source>
        <translation>
            <numerusform>binning definition, %n bin</numerusform>
            <numerusform>binning definition, %n bins</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>converted %1 of %n reports to %2</source>
        <translation>
            <numerusform>converted %1 of %n report to %2</numerusform>
            <numerusform>converted %1 of %n reports to %2</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%1 holds %n parts</source>
        <translation>
            <numerusform>%1 holds %n part</numerusform>
            <numerusform>%1 holds %n parts</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n components are in some of %1 runs only, %2 in %3; -v lists them</source>
        <translation>
            <numerusform>%n component is in some of %1 runs only, %2 in %3; -v lists them</numerusform>
            <numerusform>%n components are in some of %1 runs only, %2 in %3; -v lists them</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%1: %n panels of %2, test plan and bins</source>
        <translation>
            <numerusform>%1: %n panel of %2, test plan and bins</numerusform>
            <numerusform>%1: %n panels of %2, test plan and bins</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>and %n remarks more; -v shows all</source>
        <translation>
            <numerusform>and %n remark more; -v shows all</numerusform>
            <numerusform>and %n remarks more; -v shows all</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>test plan, %n components</source>
        <translation>
            <numerusform>test plan, %n component</numerusform>
            <numerusform>test plan, %n components</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%1: %n runs are copies of runs read before; they count once</source>
        <translation>
            <numerusform>%1: %n run is a copy of one read before; it counts once</numerusform>
            <numerusform>%1: %n runs are copies of runs read before; they count once</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%1: %n runs differ from what was read before, and replace it</source>
        <translation>
            <numerusform>%1: %n run differs from what was read before, and replaces it</numerusform>
            <numerusform>%1: %n runs differ from what was read before, and replace it</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n units gave no part, first in %1: %2</source>
        <translation>
            <numerusform>%n unit gave no part, in %1: %2</numerusform>
            <numerusform>%n units gave no part, first in %1: %2</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n parts stand there already and are left out; --again adds them all the same</source>
        <translation>
            <numerusform>%n part stands there already and is left out; --again adds it all the same</numerusform>
            <numerusform>%n parts stand there already and are left out; --again adds them all the same</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>program &apos;%1&apos; version &apos;%2&apos; in %n runs</source>
        <translation>
            <numerusform>program &apos;%1&apos; version &apos;%2&apos; in %n run</numerusform>
            <numerusform>program &apos;%1&apos; version &apos;%2&apos; in %n runs</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>and %n more</source>
        <translation>
            <numerusform>and %n more</numerusform>
            <numerusform>and %n more</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n lots</source>
        <translation>
            <numerusform>%n lot</numerusform>
            <numerusform>%n lots</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n runs</source>
        <translation>
            <numerusform>%n run</numerusform>
            <numerusform>%n runs</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n failed runs</source>
        <translation>
            <numerusform>%n failed run</numerusform>
            <numerusform>%n failed runs</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>and %n more: zyn units</source>
        <translation>
            <numerusform>and %n more: zyn units</numerusform>
            <numerusform>and %n more: zyn units</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n values, mean %1, sigma %2, limits %3</source>
        <translation>
            <numerusform>%n value, mean %1, sigma %2, limits %3</numerusform>
            <numerusform>%n values, mean %1, sigma %2, limits %3</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n values are no finite number</source>
        <translation>
            <numerusform>%n value is no finite number</numerusform>
            <numerusform>%n values are no finite number</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n runs were removed</source>
        <translation>
            <numerusform>%n run was removed</numerusform>
            <numerusform>%n runs were removed</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n values, mean %1, sigma %2, limits %3, CPK %4 (of passed %5), %6 failed</source>
        <translation>
            <numerusform>%n value, mean %1, sigma %2, limits %3, CPK %4 (of passed %5), %6 failed</numerusform>
            <numerusform>%n values, mean %1, sigma %2, limits %3, CPK %4 (of passed %5), %6 failed</numerusform>
        </translation>
    </message>
</context>
</TS>
