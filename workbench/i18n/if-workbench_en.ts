<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="en" sourcelanguage="en">
<context>
    <name>CommandLogModel</name>
    <message>
        <source>No.</source>
        <translation>No.</translation>
    </message>
    <message>
        <source>Time</source>
        <translation>Time</translation>
    </message>
    <message>
        <source>Kind</source>
        <translation>Kind</translation>
    </message>
    <message>
        <source>Module</source>
        <translation>Module</translation>
    </message>
    <message>
        <source>Parameter</source>
        <translation>Parameter</translation>
    </message>
    <message>
        <source>Content</source>
        <translation>Content</translation>
    </message>
    <message>
        <source>Status</source>
        <translation>Status</translation>
    </message>
    <message>
        <source>Message</source>
        <translation>Message</translation>
    </message>
    <message>
        <source>µs</source>
        <translation>µs</translation>
    </message>
</context>
<context>
    <name>CommandLogView</name>
    <message>
        <source>filter</source>
        <translation>filter</translation>
    </message>
    <message>
        <source>filter of the commands</source>
        <translation>filter of the commands</translation>
    </message>
    <message>
        <source>commands</source>
        <translation>commands</translation>
    </message>
    <message>
        <source>Copies the selected rows, or all that are shown.</source>
        <translation>Copies the selected rows, or all that are shown.</translation>
    </message>
    <message>
        <source>Saves the selected rows, or all that are shown, as JSON lines.</source>
        <translation>Saves the selected rows, or all that are shown, as JSON lines.</translation>
    </message>
    <message>
        <source>Save commands</source>
        <translation>Save commands</translation>
    </message>
    <message>
        <source>JSON lines (*.jsonl)</source>
        <translation>JSON lines (*.jsonl)</translation>
    </message>
    <message>
        <source>The file %1 can&apos;t be written: %2</source>
        <translation>The file %1 can&apos;t be written: %2</translation>
    </message>
    <message>
        <source>Pause</source>
        <translation>Pause</translation>
    </message>
    <message>
        <source>Clear</source>
        <translation>Clear</translation>
    </message>
    <message>
        <source>Copy</source>
        <translation>Copy</translation>
    </message>
    <message>
        <source>Save…</source>
        <translation>Save…</translation>
    </message>
</context>
<context>
    <name>CsvReader</name>
    <message>
        <source>%1: %2</source>
        <translation>%1: %2</translation>
    </message>
    <message>
        <source>%1: the file is empty</source>
        <translation>%1: the file is empty</translation>
    </message>
    <message>
        <source>there is no column %1</source>
        <translation>there is no column %1</translation>
    </message>
    <message>
        <source>%1 columns have the name %2</source>
        <translation>%1 columns have the name %2</translation>
    </message>
    <message>
        <source>%1 fields where the header has %2</source>
        <translation>%1 fields where the header has %2</translation>
    </message>
    <message>
        <source>%1: line %2: %3</source>
        <translation>%1: line %2: %3</translation>
    </message>
    <message>
        <source>a quote is not closed</source>
        <translation>a quote is not closed</translation>
    </message>
    <message>
        <source>text behind a closing quote</source>
        <translation>text behind a closing quote</translation>
    </message>
    <message>
        <source>the row is too long; perhaps a quote is not closed</source>
        <translation>the row is too long; perhaps a quote is not closed</translation>
    </message>
</context>
<context>
    <name>EmbeddedCore</name>
    <message>
        <source>%1 is too long: at most %2 bytes</source>
        <translation>%1 is too long: at most %2 bytes</translation>
    </message>
    <message>
        <source>the name is empty</source>
        <translation>the name is empty</translation>
    </message>
    <message>
        <source>the command carries no data, or too much</source>
        <translation>the command carries no data, or too much</translation>
    </message>
    <message>
        <source>the command carries no record</source>
        <translation>the command carries no record</translation>
    </message>
    <message>
        <source>module %1 has no parameter %2</source>
        <translation>module %1 has no parameter %2</translation>
    </message>
    <message>
        <source>unknown command %1</source>
        <translation>unknown command %1</translation>
    </message>
    <message>
        <source>the IO %1 is neither an input nor an output</source>
        <translation>the IO %1 is neither an input nor an output</translation>
    </message>
    <message>
        <source>the IO %1 has sub-items, which are not kept</source>
        <translation>the IO %1 has sub-items, which are not kept</translation>
    </message>
    <message>
        <source>module %1 has the IO %2 with another class or type</source>
        <translation>module %1 has the IO %2 with another class or type</translation>
    </message>
    <message>
        <source>the range or the number of types is not of the catalogue</source>
        <translation>the range or the number of types is not of the catalogue</translation>
    </message>
    <message>
        <source>the flow has no module %1</source>
        <translation>the flow has no module %1</translation>
    </message>
    <message>
        <source>%1 is neither an IO nor a run parameter</source>
        <translation>%1 is neither an IO nor a run parameter</translation>
    </message>
    <message>
        <source>module %1 has no input %2</source>
        <translation>module %1 has no input %2</translation>
    </message>
    <message>
        <source>the flow has no value %1</source>
        <translation>the flow has no value %1</translation>
    </message>
    <message>
        <source>%1 does not come before module %2</source>
        <translation>%1 does not come before module %2</translation>
    </message>
    <message>
        <source>%1 has type %2, not %3</source>
        <translation>%1 has type %2, not %3</translation>
    </message>
</context>
<context>
    <name>FaultPlan</name>
    <message>
        <source>The fault &apos;%1&apos; is not understood: %2</source>
        <translation>The fault &apos;%1&apos; is not understood: %2</translation>
    </message>
    <message>
        <source>kind is one of %1</source>
        <translation>kind is one of %1</translation>
    </message>
    <message>
        <source>when is next, every or a number from 1</source>
        <translation>when is next, every or a number from 1</translation>
    </message>
    <message>
        <source>answer is one of %1</source>
        <translation>answer is one of %1</translation>
    </message>
    <message>
        <source>its parts are kind, parameter, when, answer and message</source>
        <translation>its parts are kind, parameter, when, answer and message</translation>
    </message>
</context>
<context>
    <name>FaultsView</name>
    <message>
        <source>any</source>
        <translation>any</translation>
    </message>
    <message>
        <source>the next one</source>
        <translation>the next one</translation>
    </message>
    <message>
        <source>the n-th one</source>
        <translation>the n-th one</translation>
    </message>
    <message>
        <source>every one</source>
        <translation>every one</translation>
    </message>
    <message>
        <source>Command</source>
        <translation>Command</translation>
    </message>
    <message>
        <source>Parameter</source>
        <translation>Parameter</translation>
    </message>
    <message>
        <source>Strikes</source>
        <translation>Strikes</translation>
    </message>
    <message>
        <source>n</source>
        <translation>n</translation>
    </message>
    <message>
        <source>Answer</source>
        <translation>Answer</translation>
    </message>
    <message>
        <source>Message</source>
        <translation>Message</translation>
    </message>
    <message>
        <source>Delay: the command takes 2 s, then goes on.</source>
        <translation>Delay: the command takes 2 s, then goes on.</translation>
    </message>
    <message>
        <source>Armed:</source>
        <translation>Armed:</translation>
    </message>
    <message>
        <source>Arm</source>
        <translation>Arm</translation>
    </message>
    <message>
        <source>Disarm all</source>
        <translation>Disarm all</translation>
    </message>
</context>
<context>
    <name>Flow</name>
    <message>
        <source>%1: expected %2</source>
        <translation>%1: expected %2</translation>
    </message>
    <message>
        <source>an object</source>
        <translation>an object</translation>
    </message>
    <message>
        <source>a list</source>
        <translation>a list</translation>
    </message>
    <message>
        <source>a text that is not empty</source>
        <translation>a text that is not empty</translation>
    </message>
    <message>
        <source>at most %1 bytes of UTF-8</source>
        <translation>at most %1 bytes of UTF-8</translation>
    </message>
    <message>
        <source>&quot;int&quot;, &quot;float&quot;, &quot;string&quot; or &quot;bool&quot;, or outputs</source>
        <translation>&quot;int&quot;, &quot;float&quot;, &quot;string&quot; or &quot;bool&quot;, or outputs</translation>
    </message>
    <message>
        <source>a value of type &quot;%1&quot;</source>
        <translation>a value of type &quot;%1&quot;</translation>
    </message>
    <message>
        <source>names that together stay within %1 bytes of UTF-8</source>
        <translation>names that together stay within %1 bytes of UTF-8</translation>
    </message>
    <message>
        <source>at most %1 levels of outputs</source>
        <translation>at most %1 levels of outputs</translation>
    </message>
    <message>
        <source>a name without &quot;.&quot; that no output beside it has</source>
        <translation>a name without &quot;.&quot; that no output beside it has</translation>
    </message>
    <message>
        <source>a whole number from 1 to 2147483647 that no other module has</source>
        <translation>a whole number from 1 to 2147483647 that no other module has</translation>
    </message>
    <message>
        <source>line %1, column %2</source>
        <translation>line %1, column %2</translation>
    </message>
    <message>
        <source>JSON (%1)</source>
        <translation>JSON (%1)</translation>
    </message>
    <message>
        <source>the whole file</source>
        <translation>the whole file</translation>
    </message>
    <message>
        <source>%1: %2</source>
        <translation>%1: %2</translation>
    </message>
</context>
<context>
    <name>Headless</name>
    <message>
        <source>Standard output can&apos;t be written: %1</source>
        <translation>Standard output can&apos;t be written: %1</translation>
    </message>
</context>
<context>
    <name>HistogramView</name>
    <message>
        <source>%1 values from %2 to %3</source>
        <translation>%1 values from %2 to %3</translation>
    </message>
    <message>
        <source>no values</source>
        <translation>no values</translation>
    </message>
    <message>
        <source>range %1 to %2</source>
        <translation>range %1 to %2</translation>
    </message>
</context>
<context>
    <name>InspectorView</name>
    <message>
        <source>Conditions</source>
        <translation>Conditions</translation>
    </message>
    <message>
        <source>IOs</source>
        <translation>IOs</translation>
    </message>
    <message>
        <source>Bindings</source>
        <translation>Bindings</translation>
    </message>
    <message>
        <source>Values</source>
        <translation>Values</translation>
    </message>
    <message>
        <source>stored bytes of the condition list</source>
        <translation>stored bytes of the condition list</translation>
    </message>
    <message>
        <source>all must be met</source>
        <translation>all must be met</translation>
    </message>
    <message>
        <source>any suffices</source>
        <translation>any suffices</translation>
    </message>
    <message>
        <source>Mode: %1. Stored list, bytes: %2</source>
        <translation>Mode: %1. Stored list, bytes: %2</translation>
    </message>
</context>
<context>
    <name>Judgement</name>
    <message>
        <source>%1: %2</source>
        <translation>%1: %2</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is no number</source>
        <translation>&quot;%1&quot; is no number</translation>
    </message>
    <message>
        <source>%1 is within %2 to %3</source>
        <translation>%1 is within %2 to %3</translation>
    </message>
    <message>
        <source>the minimum %1 is above the maximum %2</source>
        <translation>the minimum %1 is above the maximum %2</translation>
    </message>
    <message>
        <source>%1 is below %2</source>
        <translation>%1 is below %2</translation>
    </message>
    <message>
        <source>%1 is above %2</source>
        <translation>%1 is above %2</translation>
    </message>
    <message>
        <source>minimum</source>
        <translation>minimum</translation>
    </message>
    <message>
        <source>maximum</source>
        <translation>maximum</translation>
    </message>
    <message>
        <source>not bound</source>
        <translation>not bound</translation>
    </message>
    <message>
        <source>the flow gives %1 no column</source>
        <translation>the flow gives %1 no column</translation>
    </message>
    <message>
        <source>the flow gives %1 no value</source>
        <translation>the flow gives %1 no value</translation>
    </message>
</context>
<context>
    <name>MainWindow</name>
    <message>
        <source>&amp;File</source>
        <translation>&amp;File</translation>
    </message>
    <message>
        <source>&amp;Open flow...</source>
        <translation>&amp;Open flow...</translation>
    </message>
    <message>
        <source>&amp;Recent flows</source>
        <translation>&amp;Recent flows</translation>
    </message>
    <message>
        <source>Re&amp;load flow</source>
        <translation>Re&amp;load flow</translation>
    </message>
    <message>
        <source>&amp;Quit</source>
        <translation>&amp;Quit</translation>
    </message>
    <message>
        <source>&amp;View</source>
        <translation>&amp;View</translation>
    </message>
    <message>
        <source>&amp;Help</source>
        <translation>&amp;Help</translation>
    </message>
    <message>
        <source>&amp;About</source>
        <translation>&amp;About</translation>
    </message>
    <message>
        <source>modules of the flow</source>
        <translation>modules of the flow</translation>
    </message>
    <message>
        <source>Flow: %1</source>
        <translation>Flow: %1</translation>
    </message>
    <message>
        <source>Store: %1</source>
        <translation>Store: %1</translation>
    </message>
    <message>
        <source>Inspector</source>
        <translation>Inspector</translation>
    </message>
    <message>
        <source>This module has no panel here.</source>
        <translation>This module has no panel here.</translation>
    </message>
    <message>
        <source>Open flow</source>
        <translation>Open flow</translation>
    </message>
    <message>
        <source>Inspection flows (*.json)</source>
        <translation>Inspection flows (*.json)</translation>
    </message>
    <message>
        <source>&lt;b&gt;If Workbench %1&lt;/b&gt;&lt;p&gt;Shows an inspection flow and the configuration panels of its If modules.&lt;p&gt;Qt %2</source>
        <translation>&lt;b&gt;If Workbench %1&lt;/b&gt;&lt;p&gt;Shows an inspection flow and the configuration panels of its If modules.&lt;p&gt;Qt %2</translation>
    </message>
    <message>
        <source>Run</source>
        <translation>Run</translation>
    </message>
    <message>
        <source>Commands</source>
        <translation>Commands</translation>
    </message>
    <message>
        <source>Faults</source>
        <translation>Faults</translation>
    </message>
    <message>
        <source>Faults are armed</source>
        <translation>Faults are armed</translation>
    </message>
</context>
<context>
    <name>ModuleInspection</name>
    <message>
        <source>Name</source>
        <translation>Name</translation>
    </message>
    <message>
        <source>Type</source>
        <translation>Type</translation>
    </message>
    <message>
        <source>Minimum</source>
        <translation>Minimum</translation>
    </message>
    <message>
        <source>Maximum</source>
        <translation>Maximum</translation>
    </message>
    <message>
        <source>Note</source>
        <translation>Note</translation>
    </message>
    <message>
        <source>State</source>
        <translation>State</translation>
    </message>
    <message>
        <source>stored</source>
        <translation>stored</translation>
    </message>
    <message>
        <source>not shown</source>
        <translation>not shown</translation>
    </message>
    <message>
        <source>shown otherwise: %1</source>
        <translation>shown otherwise: %1</translation>
    </message>
    <message>
        <source>cut by the length rule</source>
        <translation>cut by the length rule</translation>
    </message>
    <message>
        <source>shown, but not stored</source>
        <translation>shown, but not stored</translation>
    </message>
    <message>
        <source>Class</source>
        <translation>Class</translation>
    </message>
    <message>
        <source>Flags</source>
        <translation>Flags</translation>
    </message>
    <message>
        <source>input</source>
        <translation>input</translation>
    </message>
    <message>
        <source>output</source>
        <translation>output</translation>
    </message>
    <message>
        <source>Key</source>
        <translation>Key</translation>
    </message>
    <message>
        <source>Kind</source>
        <translation>Kind</translation>
    </message>
    <message>
        <source>Source</source>
        <translation>Source</translation>
    </message>
    <message>
        <source>Value</source>
        <translation>Value</translation>
    </message>
    <message>
        <source>IO</source>
        <translation>IO</translation>
    </message>
    <message>
        <source>run parameter</source>
        <translation>run parameter</translation>
    </message>
    <message>
        <source>bound</source>
        <translation>bound</translation>
    </message>
    <message>
        <source>UI data</source>
        <translation>UI data</translation>
    </message>
</context>
<context>
    <name>PanelPlugin</name>
    <message>
        <source>The plug-in can&apos;t be loaded: %1</source>
        <translation>The plug-in can&apos;t be loaded: %1</translation>
    </message>
    <message>
        <source>The plug-in %1 has no function %2.</source>
        <translation>The plug-in %1 has no function %2.</translation>
    </message>
</context>
<context>
    <name>ResultModel</name>
    <message>
        <source>OK</source>
        <translation>OK</translation>
    </message>
    <message>
        <source>not OK</source>
        <translation>not OK</translation>
    </message>
    <message>
        <source>Line</source>
        <translation>Line</translation>
    </message>
    <message>
        <source>Result</source>
        <translation>Result</translation>
    </message>
</context>
<context>
    <name>RunDock</name>
    <message>
        <source>values of the flow</source>
        <translation>values of the flow</translation>
    </message>
    <message>
        <source>sample values</source>
        <translation>sample values</translation>
    </message>
    <message>
        <source>results</source>
        <translation>results</translation>
    </message>
    <message>
        <source>part of the file that is judged</source>
        <translation>part of the file that is judged</translation>
    </message>
    <message>
        <source>condition shown</source>
        <translation>condition shown</translation>
    </message>
    <message>
        <source>values of the condition</source>
        <translation>values of the condition</translation>
    </message>
    <message>
        <source>Sample values</source>
        <translation>Sample values</translation>
    </message>
    <message>
        <source>Comma-separated values (*.csv);;All files (*)</source>
        <translation>Comma-separated values (*.csv);;All files (*)</translation>
    </message>
    <message>
        <source>nothing judged yet</source>
        <translation>nothing judged yet</translation>
    </message>
    <message>
        <source>; the table shows the first %1</source>
        <translation>; the table shows the first %1</translation>
    </message>
    <message>
        <source>; no further rows</source>
        <translation>; no further rows</translation>
    </message>
    <message>
        <source>Open CSV…</source>
        <translation>Open CSV…</translation>
    </message>
    <message>
        <source>Run once</source>
        <translation>Run once</translation>
    </message>
    <message>
        <source>Step</source>
        <translation>Step</translation>
    </message>
    <message>
        <source>Run all</source>
        <translation>Run all</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Cancel</translation>
    </message>
    <message>
        <source>Judges the first row (F8).</source>
        <translation>Judges the first row (F8).</translation>
    </message>
    <message>
        <source>Judges the next row (F10).</source>
        <translation>Judges the next row (F10).</translation>
    </message>
    <message>
        <source>Judges all rows from the first (F9).</source>
        <translation>Judges all rows from the first (F9).</translation>
    </message>
</context>
<context>
    <name>SampleRun</name>
    <message>
        <source>%1 in, %2 out, %3 without value</source>
        <translation>%1 in, %2 out, %3 without value</translation>
    </message>
    <message>
        <source>no rows</source>
        <translation>no rows</translation>
    </message>
    <message>
        <source>%1 rows, %2 OK, %3 not OK, pass rate %4 %</source>
        <translation>%1 rows, %2 OK, %3 not OK, pass rate %4 %</translation>
    </message>
</context>
<context>
    <name>Screenshot</name>
    <message>
        <source>The picture %1 can&apos;t be written: %2</source>
        <translation>The picture %1 can&apos;t be written: %2</translation>
    </message>
</context>
<context>
    <name>Store</name>
    <message>
        <source>the store %1 is not a file</source>
        <translation>the store %1 is not a file</translation>
    </message>
    <message>
        <source>the folder of the store %1, or its lock file there, can&apos;t be written: %2</source>
        <translation>the folder of the store %1, or its lock file there, can&apos;t be written: %2</translation>
    </message>
    <message>
        <source>the store %1 is in use by another program</source>
        <translation>the store %1 is in use by another program</translation>
    </message>
    <message>
        <source>the store %1 can&apos;t be opened: %2</source>
        <translation>the store %1 can&apos;t be opened: %2</translation>
    </message>
    <message>
        <source>%1 is a database, but no store of an inspection flow</source>
        <translation>%1 is a database, but no store of an inspection flow</translation>
    </message>
    <message>
        <source>the store %1 has version %2; this program reads up to %3</source>
        <translation>the store %1 has version %2; this program reads up to %3</translation>
    </message>
    <message>
        <source>the store %1 is damaged: %2</source>
        <translation>the store %1 is damaged: %2</translation>
    </message>
    <message>
        <source>the store %1 failed: %2</source>
        <translation>the store %1 failed: %2</translation>
    </message>
</context>
<context>
    <name>WorkbenchApplication</name>
    <message>
        <source>The core or a panel failed; the last action may be incomplete.

%1</source>
        <translation>The core or a panel failed; the last action may be incomplete.

%1</translation>
    </message>
</context>
<context>
    <name>WorkbenchOptions</name>
    <message>
        <source>Shows an inspection flow and the configuration panels of its If modules.</source>
        <translation>Shows an inspection flow and the configuration panels of its If modules.</translation>
    </message>
    <message>
        <source>Inspection flow to open, a JSON file.</source>
        <translation>Inspection flow to open, a JSON file.</translation>
    </message>
    <message>
        <source>file</source>
        <translation>file</translation>
    </message>
    <message>
        <source>Store of the modules&apos; parameters, made when it is missing.</source>
        <translation>Store of the modules&apos; parameters, made when it is missing.</translation>
    </message>
    <message>
        <source>id</source>
        <translation>id</translation>
    </message>
    <message>
        <source>Plug-in that makes the panels.</source>
        <translation>Plug-in that makes the panels.</translation>
    </message>
    <message>
        <source>Write a picture of the window and end; needs no display.</source>
        <translation>Write a picture of the window and end; needs no display.</translation>
    </message>
    <message>
        <source>file.png</source>
        <translation>file.png</translation>
    </message>
    <message>
        <source>Show this text.</source>
        <translation>Show this text.</translation>
    </message>
    <message>
        <source>Show the version.</source>
        <translation>Show the version.</translation>
    </message>
    <message>
        <source>Unexpected argument &apos;%1&apos;.</source>
        <translation>Unexpected argument &apos;%1&apos;.</translation>
    </message>
    <message>
        <source>&apos;%1&apos; is no module id.</source>
        <translation>&apos;%1&apos; is no module id.</translation>
    </message>
    <message>
        <source>Module to show first, to run or to dump.</source>
        <translation>Module to show first, to run or to dump.</translation>
    </message>
    <message>
        <source>Judge the rows of a CSV file, print the results as CSV and end; needs no display.</source>
        <translation>Judge the rows of a CSV file, print the results as CSV and end; needs no display.</translation>
    </message>
    <message>
        <source>file.csv</source>
        <translation>file.csv</translation>
    </message>
    <message>
        <source>Print all that the store holds for the module as JSON and end; needs no display.</source>
        <translation>Print all that the store holds for the module as JSON and end; needs no display.</translation>
    </message>
    <message>
        <source>Arm a fault, such as kind=SetBinaryData,parameter=IFText,when=next,answer=Failed,message=full. May be given again.</source>
        <translation>Arm a fault, such as kind=SetBinaryData,parameter=IFText,when=next,answer=Failed,message=full. May be given again.</translation>
    </message>
    <message>
        <source>fault</source>
        <translation>fault</translation>
    </message>
    <message>
        <source>--run, --dump and --screenshot exclude each other.</source>
        <translation>--run, --dump and --screenshot exclude each other.</translation>
    </message>
    <message>
        <source>--run needs the name of a file.</source>
        <translation>--run needs the name of a file.</translation>
    </message>
    <message>
        <source>The flow %1 has no module %2.</source>
        <translation>The flow %1 has no module %2.</translation>
    </message>
</context>
<context>
    <name>main</name>
    <message>
        <source>If Workbench</source>
        <translation>If Workbench</translation>
    </message>
    <message>
        <source>There is no display. --screenshot FILE.png writes a picture without one.</source>
        <translation>There is no display. --screenshot FILE.png writes a picture without one.</translation>
    </message>
    <message>
        <source>Module %1 is no If module.</source>
        <translation>Module %1 is no If module.</translation>
    </message>
    <message>
        <source>The flow %1 has no If module.</source>
        <translation>The flow %1 has no If module.</translation>
    </message>
</context>
</TS>
