<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="zh_CN" sourcelanguage="en">
<context>
    <name>BindingSources</name>
    <message>
        <source>module %1 has no input %2</source>
        <translation>模块 %1 没有输入 %2</translation>
    </message>
    <message>
        <source>the flow has no value %1</source>
        <translation>流程没有数值 %1</translation>
    </message>
    <message>
        <source>%1 does not come before module %2</source>
        <translation>%1 不在模块 %2 之前</translation>
    </message>
    <message>
        <source>%1 has type %2, not %3</source>
        <translation>%1 的类型是 %2，不是 %3</translation>
    </message>
</context>
<context>
    <name>CommandLogModel</name>
    <message>
        <source>No.</source>
        <translation>序号</translation>
    </message>
    <message>
        <source>Time</source>
        <translation>时间</translation>
    </message>
    <message>
        <source>Kind</source>
        <translation>种类</translation>
    </message>
    <message>
        <source>Module</source>
        <translation>模块</translation>
    </message>
    <message>
        <source>Parameter</source>
        <translation>参数</translation>
    </message>
    <message>
        <source>Content</source>
        <translation>内容</translation>
    </message>
    <message>
        <source>Status</source>
        <translation>状态</translation>
    </message>
    <message>
        <source>Message</source>
        <translation>消息</translation>
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
        <translation>筛选</translation>
    </message>
    <message>
        <source>filter of the commands</source>
        <translation>命令筛选</translation>
    </message>
    <message>
        <source>commands</source>
        <translation>命令</translation>
    </message>
    <message>
        <source>Copies the selected rows, or all that are shown.</source>
        <translation>复制所选行，未选时复制全部显示的行。</translation>
    </message>
    <message>
        <source>Saves the selected rows, or all that are shown, as JSON lines.</source>
        <translation>以 JSON 行保存所选行，未选时保存全部显示的行。</translation>
    </message>
    <message>
        <source>Save commands</source>
        <translation>保存命令</translation>
    </message>
    <message>
        <source>JSON lines (*.jsonl)</source>
        <translation>JSON 行 (*.jsonl)</translation>
    </message>
    <message>
        <source>The file %1 can&apos;t be written: %2</source>
        <translation>无法写入文件 %1：%2</translation>
    </message>
    <message>
        <source>Pause</source>
        <translation>暂停</translation>
    </message>
    <message>
        <source>Clear</source>
        <translation>清除</translation>
    </message>
    <message>
        <source>Copy</source>
        <translation>复制</translation>
    </message>
    <message>
        <source>Save…</source>
        <translation>保存…</translation>
    </message>
</context>
<context>
    <name>ConditionsFile</name>
    <message>
        <source>%1 is there twice</source>
        <translation>%1 出现了两次</translation>
    </message>
    <message>
        <source>%1; what was changed before can&apos;t be undone: %2</source>
        <translation>%1；此前的更改无法撤销：%2</translation>
    </message>
    <message>
        <source>a number from -%1 to %1</source>
        <translation>-%1 到 %1 之间的数</translation>
    </message>
    <message>
        <source>at most three decimals</source>
        <translation>最多三位小数</translation>
    </message>
    <message>
        <source>a whole number</source>
        <translation>整数</translation>
    </message>
    <message>
        <source>&quot;int&quot; or &quot;float&quot; and a number</source>
        <translation>“int”或“float”加一个编号</translation>
    </message>
    <message>
        <source>a note without &apos;:&apos;, &apos;;&apos; and control characters</source>
        <translation>不含“:”、“;”和控制字符的备注</translation>
    </message>
    <message>
        <source>&quot;all&quot; or &quot;any&quot;</source>
        <translation>“all”或“any”</translation>
    </message>
</context>
<context>
    <name>CsvReader</name>
    <message>
        <source>%1: %2</source>
        <translation>%1：%2</translation>
    </message>
    <message>
        <source>%1: the file is empty</source>
        <translation>%1：文件为空</translation>
    </message>
    <message>
        <source>there is no column %1</source>
        <translation>没有列 %1</translation>
    </message>
    <message>
        <source>%1 columns have the name %2</source>
        <translation>有 %1 列名为 %2</translation>
    </message>
    <message>
        <source>%1 fields where the header has %2</source>
        <translation>有 %1 个字段，而表头有 %2 个</translation>
    </message>
    <message>
        <source>%1: line %2: %3</source>
        <translation>%1：第 %2 行：%3</translation>
    </message>
    <message>
        <source>a quote is not closed</source>
        <translation>引号未闭合</translation>
    </message>
    <message>
        <source>text behind a closing quote</source>
        <translation>闭合引号后有文本</translation>
    </message>
    <message>
        <source>the row is too long; perhaps a quote is not closed</source>
        <translation>该行过长，可能引号未闭合</translation>
    </message>
    <message>
        <source>the text is UTF-16 or no text; it has to be UTF-8</source>
        <translation>内容是 UTF-16 或不是文本；必须是 UTF-8</translation>
    </message>
    <message>
        <source>there is no column %1; found one column &apos;%2&apos;: separated by &apos;%3&apos;?</source>
        <translation>没有列 %1；只找到一列“%2”：是否以“%3”分隔？</translation>
    </message>
    <message>
        <source>there is no column %1; found one column &apos;%2&apos;</source>
        <translation>没有列 %1；只找到一列“%2”</translation>
    </message>
    <message>
        <source>the header differs from that of %1</source>
        <translation>表头与 %1 的不同</translation>
    </message>
    <message>
        <source>standard input</source>
        <translation>标准输入</translation>
    </message>
</context>
<context>
    <name>EmbeddedCore</name>
    <message>
        <source>%1 is too long: at most %2 bytes</source>
        <translation>%1 过长：最多 %2 字节</translation>
    </message>
    <message>
        <source>the name is empty</source>
        <translation>名称为空</translation>
    </message>
    <message>
        <source>the command carries no data, or too much</source>
        <translation>命令没有数据或数据过多</translation>
    </message>
    <message>
        <source>the command carries no record</source>
        <translation>命令没有记录</translation>
    </message>
    <message>
        <source>module %1 has no parameter %2</source>
        <translation>模块 %1 没有参数 %2</translation>
    </message>
    <message>
        <source>unknown command %1</source>
        <translation>未知命令 %1</translation>
    </message>
    <message>
        <source>the IO %1 is neither an input nor an output</source>
        <translation>IO %1 既不是输入也不是输出</translation>
    </message>
    <message>
        <source>the IO %1 has sub-items, which are not kept</source>
        <translation>IO %1 含有不予保存的子项</translation>
    </message>
    <message>
        <source>module %1 has the IO %2 with another class or type</source>
        <translation>模块 %1 已有类别或类型不同的 IO %2</translation>
    </message>
    <message>
        <source>the range or the number of types is not of the catalogue</source>
        <translation>范围或类型数不在目录中</translation>
    </message>
    <message>
        <source>the flow has no module %1</source>
        <translation>流程没有模块 %1</translation>
    </message>
    <message>
        <source>%1 is neither an IO nor a run parameter</source>
        <translation>%1 既不是 IO 也不是运行参数</translation>
    </message>
</context>
<context>
    <name>FaultPlan</name>
    <message>
        <source>The fault &apos;%1&apos; is not understood: %2</source>
        <translation>无法理解故障“%1”：%2</translation>
    </message>
    <message>
        <source>kind is one of %1</source>
        <translation>kind 应为 %1 之一</translation>
    </message>
    <message>
        <source>when is next, every or a number from 1</source>
        <translation>when 应为 next、every 或从 1 起的数字</translation>
    </message>
    <message>
        <source>answer is one of %1</source>
        <translation>answer 应为 %1 之一</translation>
    </message>
    <message>
        <source>its parts are kind, parameter, when, answer and message</source>
        <translation>其组成为 kind、parameter、when、answer 和 message</translation>
    </message>
</context>
<context>
    <name>FaultsView</name>
    <message>
        <source>any</source>
        <translation>任意</translation>
    </message>
    <message>
        <source>the next one</source>
        <translation>下一个</translation>
    </message>
    <message>
        <source>the n-th one</source>
        <translation>第 n 个</translation>
    </message>
    <message>
        <source>every one</source>
        <translation>每一个</translation>
    </message>
    <message>
        <source>Command</source>
        <translation>命令</translation>
    </message>
    <message>
        <source>Parameter</source>
        <translation>参数</translation>
    </message>
    <message>
        <source>Strikes</source>
        <translation>作用于</translation>
    </message>
    <message>
        <source>n</source>
        <translation>n</translation>
    </message>
    <message>
        <source>Answer</source>
        <translation>应答</translation>
    </message>
    <message>
        <source>Message</source>
        <translation>消息</translation>
    </message>
    <message>
        <source>Delay: the command takes 2 s, then goes on.</source>
        <translation>Delay：命令耗时 2 秒后继续。</translation>
    </message>
    <message>
        <source>Armed:</source>
        <translation>已启用：</translation>
    </message>
    <message>
        <source>Arm</source>
        <translation>启用</translation>
    </message>
    <message>
        <source>Disarm all</source>
        <translation>全部停用</translation>
    </message>
</context>
<context>
    <name>Flow</name>
    <message>
        <source>at most %1 bytes of UTF-8</source>
        <translation>最多 %1 字节的 UTF-8</translation>
    </message>
    <message>
        <source>&quot;int&quot;, &quot;float&quot;, &quot;string&quot; or &quot;bool&quot;, or outputs</source>
        <translation>&quot;int&quot;、&quot;float&quot;、&quot;string&quot; 或 &quot;bool&quot;，或 outputs</translation>
    </message>
    <message>
        <source>a value of type &quot;%1&quot;</source>
        <translation>“%1”类型的值</translation>
    </message>
    <message>
        <source>names that together stay within %1 bytes of UTF-8</source>
        <translation>总长不超过 %1 字节 UTF-8 的名称</translation>
    </message>
    <message>
        <source>at most %1 levels of outputs</source>
        <translation>最多 %1 层输出</translation>
    </message>
    <message>
        <source>a name without &quot;.&quot; that no output of the group has</source>
        <translation>不含“.”且同级中唯一的名称</translation>
    </message>
    <message>
        <source>a whole number from 1 to 2147483647 that no other module has</source>
        <translation>1 到 2147483647 之间且其他模块未用的整数</translation>
    </message>
</context>
<context>
    <name>Headless</name>
    <message>
        <source>Standard output can&apos;t be written: %1</source>
        <translation>无法写入标准输出：%1</translation>
    </message>
    <message>
        <source>%1 rows</source>
        <translation>%1 行</translation>
    </message>
</context>
<context>
    <name>HistogramView</name>
    <message>
        <source>%1 values from %2 to %3</source>
        <translation>%1 个值，从 %2 到 %3</translation>
    </message>
    <message>
        <source>no values</source>
        <translation>没有数值</translation>
    </message>
    <message>
        <source>range %1 to %2</source>
        <translation>范围 %1 到 %2</translation>
    </message>
    <message>
        <source>varies %1 to %2</source>
        <translation>在 %1 到 %2 之间变化</translation>
    </message>
</context>
<context>
    <name>InspectorView</name>
    <message>
        <source>Conditions</source>
        <translation>条件</translation>
    </message>
    <message>
        <source>IOs</source>
        <translation>IO</translation>
    </message>
    <message>
        <source>Bindings</source>
        <translation>绑定</translation>
    </message>
    <message>
        <source>Values</source>
        <translation>数值</translation>
    </message>
    <message>
        <source>stored bytes of the condition list</source>
        <translation>条件列表的存储字节</translation>
    </message>
    <message>
        <source>all must be met</source>
        <translation>全部满足</translation>
    </message>
    <message>
        <source>any suffices</source>
        <translation>任意满足</translation>
    </message>
    <message>
        <source>Mode: %1. Stored list, bytes: %2</source>
        <translation>模式：%1。已存列表，字节数：%2</translation>
    </message>
</context>
<context>
    <name>JsonNode</name>
    <message>
        <source>line %1, column %2</source>
        <translation>第 %1 行第 %2 列</translation>
    </message>
    <message>
        <source>JSON (%1)</source>
        <translation>JSON（%1）</translation>
    </message>
    <message>
        <source>%1: %2</source>
        <translation>%1：%2</translation>
    </message>
    <message>
        <source>the whole file</source>
        <translation>整个文件</translation>
    </message>
    <message>
        <source>expected %1</source>
        <translation>应为 %1</translation>
    </message>
    <message>
        <source>an object</source>
        <translation>对象</translation>
    </message>
    <message>
        <source>unknown key &quot;%1&quot;, expected %2</source>
        <translation>未知的键“%1”，应为 %2</translation>
    </message>
    <message>
        <source>a list</source>
        <translation>列表</translation>
    </message>
    <message>
        <source>a text that is not empty</source>
        <translation>非空文本</translation>
    </message>
    <message>
        <source>a text</source>
        <translation>文本</translation>
    </message>
</context>
<context>
    <name>Judgement</name>
    <message>
        <source>%1: %2</source>
        <translation>%1：%2</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is no number</source>
        <translation>“%1”不是数字</translation>
    </message>
    <message>
        <source>%1 is within %2 to %3</source>
        <translation>%1 在 %2 到 %3 之间</translation>
    </message>
    <message>
        <source>the minimum %1 is above the maximum %2</source>
        <translation>最小值 %1 大于最大值 %2</translation>
    </message>
    <message>
        <source>%1 is below %2</source>
        <translation>%1 小于 %2</translation>
    </message>
    <message>
        <source>%1 is above %2</source>
        <translation>%1 大于 %2</translation>
    </message>
    <message>
        <source>minimum</source>
        <translation>最小值</translation>
    </message>
    <message>
        <source>maximum</source>
        <translation>最大值</translation>
    </message>
    <message>
        <source>not bound</source>
        <translation>未绑定</translation>
    </message>
    <message>
        <source>the flow gives %1 no column</source>
        <translation>流程未给 %1 指定列</translation>
    </message>
    <message>
        <source>the flow gives %1 no value</source>
        <translation>流程未给 %1 赋值</translation>
    </message>
</context>
<context>
    <name>MainWindow</name>
    <message>
        <source>&amp;File</source>
        <translation>文件(&amp;F)</translation>
    </message>
    <message>
        <source>&amp;Open flow...</source>
        <translation>打开流程(&amp;O)...</translation>
    </message>
    <message>
        <source>&amp;Recent flows</source>
        <translation>最近的流程(&amp;R)</translation>
    </message>
    <message>
        <source>Re&amp;load flow</source>
        <translation>重新加载流程(&amp;L)</translation>
    </message>
    <message>
        <source>&amp;Quit</source>
        <translation>退出(&amp;Q)</translation>
    </message>
    <message>
        <source>&amp;View</source>
        <translation>视图(&amp;V)</translation>
    </message>
    <message>
        <source>&amp;Help</source>
        <translation>帮助(&amp;H)</translation>
    </message>
    <message>
        <source>&amp;About</source>
        <translation>关于(&amp;A)</translation>
    </message>
    <message>
        <source>modules of the flow</source>
        <translation>流程的模块</translation>
    </message>
    <message>
        <source>Flow: %1</source>
        <translation>流程：%1</translation>
    </message>
    <message>
        <source>Store: %1</source>
        <translation>存储：%1</translation>
    </message>
    <message>
        <source>Inspector</source>
        <translation>检查器</translation>
    </message>
    <message>
        <source>Open flow</source>
        <translation>打开流程</translation>
    </message>
    <message>
        <source>Inspection flows (*.json)</source>
        <translation>检测流程 (*.json)</translation>
    </message>
    <message>
        <source>&lt;b&gt;If Workbench %1&lt;/b&gt;&lt;p&gt;Shows an inspection flow and the configuration panels of its If modules.&lt;p&gt;Qt %2</source>
        <translation>&lt;b&gt;If 工作台 %1&lt;/b&gt;&lt;p&gt;显示检测流程及其 If 模块的配置面板。&lt;p&gt;Qt %2</translation>
    </message>
    <message>
        <source>Run</source>
        <translation>运行</translation>
    </message>
    <message>
        <source>Commands</source>
        <translation>命令</translation>
    </message>
    <message>
        <source>Faults</source>
        <translation>故障</translation>
    </message>
    <message>
        <source>Faults are armed</source>
        <translation>故障已启用</translation>
    </message>
    <message>
        <source>Conditions (*.json)</source>
        <translation>条件 (*.json)</translation>
    </message>
    <message>
        <source>&amp;Import conditions...</source>
        <translation>导入条件(&amp;I)...</translation>
    </message>
    <message>
        <source>&amp;Export conditions...</source>
        <translation>导出条件(&amp;E)...</translation>
    </message>
    <message>
        <source>&amp;Edit</source>
        <translation>编辑(&amp;E)</translation>
    </message>
    <message>
        <source>&amp;Undo</source>
        <translation>撤销(&amp;U)</translation>
    </message>
    <message>
        <source>&amp;Run</source>
        <translation>运行(&amp;R)</translation>
    </message>
    <message>
        <source>Import conditions</source>
        <translation>导入条件</translation>
    </message>
    <message>
        <source>Export conditions</source>
        <translation>导出条件</translation>
    </message>
</context>
<context>
    <name>ModuleInspection</name>
    <message>
        <source>Name</source>
        <translation>名称</translation>
    </message>
    <message>
        <source>Type</source>
        <translation>类型</translation>
    </message>
    <message>
        <source>Minimum</source>
        <translation>最小值</translation>
    </message>
    <message>
        <source>Maximum</source>
        <translation>最大值</translation>
    </message>
    <message>
        <source>Note</source>
        <translation>注释</translation>
    </message>
    <message>
        <source>State</source>
        <translation>状态</translation>
    </message>
    <message>
        <source>stored</source>
        <translation>已存储</translation>
    </message>
    <message>
        <source>cut by the length rule</source>
        <translation>被长度规则截断</translation>
    </message>
    <message>
        <source>shown, but not stored</source>
        <translation>已显示但未存储</translation>
    </message>
    <message>
        <source>Class</source>
        <translation>类别</translation>
    </message>
    <message>
        <source>Flags</source>
        <translation>标志</translation>
    </message>
    <message>
        <source>input</source>
        <translation>输入</translation>
    </message>
    <message>
        <source>output</source>
        <translation>输出</translation>
    </message>
    <message>
        <source>Key</source>
        <translation>键</translation>
    </message>
    <message>
        <source>Kind</source>
        <translation>种类</translation>
    </message>
    <message>
        <source>Source</source>
        <translation>来源</translation>
    </message>
    <message>
        <source>Value</source>
        <translation>值</translation>
    </message>
    <message>
        <source>IO</source>
        <translation>IO</translation>
    </message>
    <message>
        <source>run parameter</source>
        <translation>运行参数</translation>
    </message>
    <message>
        <source>bound</source>
        <translation>已绑定</translation>
    </message>
    <message>
        <source>UI data</source>
        <translation>界面数据</translation>
    </message>
    <message>
        <source>stored minimum is %1, shown %2</source>
        <translation>存储的最小值为 %1，显示的为 %2</translation>
    </message>
    <message>
        <source>stored maximum is %1, shown %2</source>
        <translation>存储的最大值为 %1，显示的为 %2</translation>
    </message>
    <message>
        <source>stored note is &quot;%1&quot;, shown &quot;%2&quot;</source>
        <translation>存储的备注为“%1”，显示的为“%2”</translation>
    </message>
    <message>
        <source>Input</source>
        <translation>输入</translation>
    </message>
    <message>
        <source>Result</source>
        <translation>结果</translation>
    </message>
    <message>
        <source>stored, but not shown</source>
        <translation>已存储，但未显示</translation>
    </message>
    <message>
        <source>in</source>
        <translation>符合</translation>
    </message>
    <message>
        <source>out</source>
        <translation>不符合</translation>
    </message>
    <message>
        <source>%1 is not shown, but still stored</source>
        <translation>%1 未显示，但仍在存储中</translation>
    </message>
    <message>
        <source>%1 is not stored</source>
        <translation>%1 未存储</translation>
    </message>
    <message>
        <source>%1 is not stored: %2</source>
        <translation>%1 未存储：%2</translation>
    </message>
    <message>
        <source>Output</source>
        <translation>输出</translation>
    </message>
    <message>
        <source>CSV column</source>
        <translation>CSV 列</translation>
    </message>
</context>
<context>
    <name>PanelPlugin</name>
    <message>
        <source>The plug-in can&apos;t be loaded: %1</source>
        <translation>无法加载插件：%1</translation>
    </message>
    <message>
        <source>The plug-in %1 has no function %2.</source>
        <translation>插件 %1 没有函数 %2。</translation>
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
        <translation>不合格</translation>
    </message>
    <message>
        <source>Result</source>
        <translation>结果</translation>
    </message>
    <message>
        <source>line %1 of the file</source>
        <translation>文件第 %1 行</translation>
    </message>
    <message>
        <source>Row</source>
        <translation>行</translation>
    </message>
</context>
<context>
    <name>RunDock</name>
    <message>
        <source>values of the flow</source>
        <translation>流程的数值</translation>
    </message>
    <message>
        <source>sample values</source>
        <translation>样本值</translation>
    </message>
    <message>
        <source>results</source>
        <translation>结果</translation>
    </message>
    <message>
        <source>part of the file that is judged</source>
        <translation>文件中已判断的部分</translation>
    </message>
    <message>
        <source>condition shown</source>
        <translation>显示的条件</translation>
    </message>
    <message>
        <source>values of the condition</source>
        <translation>条件的数值</translation>
    </message>
    <message>
        <source>Sample values</source>
        <translation>样本值</translation>
    </message>
    <message>
        <source>Comma-separated values (*.csv);;All files (*)</source>
        <translation>逗号分隔值 (*.csv);;所有文件 (*)</translation>
    </message>
    <message>
        <source>nothing judged yet</source>
        <translation>尚未判断</translation>
    </message>
    <message>
        <source>Open CSV…</source>
        <translation>打开 CSV…</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>取消</translation>
    </message>
    <message>
        <source>Judges the first row (F8).</source>
        <translation>判断第一行（F8）。</translation>
    </message>
    <message>
        <source>Judges the next row (F10).</source>
        <translation>判断下一行（F10）。</translation>
    </message>
    <message>
        <source>Judges all rows from the first (F9).</source>
        <translation>从第一行起判断所有行（F9）。</translation>
    </message>
    <message>
        <source>Judge first row</source>
        <translation>判断第一行</translation>
    </message>
    <message>
        <source>Judge next row</source>
        <translation>判断下一行</translation>
    </message>
    <message>
        <source>Judge all rows</source>
        <translation>判断所有行</translation>
    </message>
    <message>
        <source>Export results…</source>
        <translation>导出结果…</translation>
    </message>
    <message>
        <source>Only not OK</source>
        <translation>仅不合格</translation>
    </message>
    <message>
        <source>Copy rows</source>
        <translation>复制行</translation>
    </message>
    <message>
        <source>Judges all rows and writes the results to a CSV file.</source>
        <translation>判断所有行并将结果写入 CSV 文件。</translation>
    </message>
    <message>
        <source>Export results</source>
        <translation>导出结果</translation>
    </message>
    <message>
        <source>Comma-separated values (*.csv)</source>
        <translation>逗号分隔值 (*.csv)</translation>
    </message>
    <message>
        <source>Exporting results…</source>
        <translation>正在导出结果…</translation>
    </message>
    <message>
        <source>The file %1 can&apos;t be written: %2</source>
        <translation>无法写入文件 %1：%2</translation>
    </message>
    <message>
        <source>%1 rows, no conditions</source>
        <translation>%1 行，没有条件</translation>
    </message>
    <message>
        <source>the table shows the first %1</source>
        <translation>表格显示前 %1 行</translation>
    </message>
    <message>
        <source>no further rows</source>
        <translation>没有更多行</translation>
    </message>
    <message>
        <source>outdated: the conditions have changed</source>
        <translation>已过时：条件已更改</translation>
    </message>
    <message>
        <source>minimum</source>
        <translation>最小值</translation>
    </message>
    <message>
        <source>1 %</source>
        <translation>1 %</translation>
    </message>
    <message>
        <source>median</source>
        <translation>中位数</translation>
    </message>
    <message>
        <source>99 %</source>
        <translation>99 %</translation>
    </message>
    <message>
        <source>maximum</source>
        <translation>最大值</translation>
    </message>
</context>
<context>
    <name>SampleRun</name>
    <message>
        <source>%1 in, %2 out, %3 without value</source>
        <translation>范围内 %1，范围外 %2，无值 %3</translation>
    </message>
    <message>
        <source>no rows</source>
        <translation>没有行</translation>
    </message>
    <message>
        <source>%1 rows, %2 OK, %3 not OK, pass rate %4 %</source>
        <translation>共 %1 行，OK %2，不合格 %3，合格率 %4 %</translation>
    </message>
</context>
<context>
    <name>Screenshot</name>
    <message>
        <source>The picture %1 can&apos;t be written: %2</source>
        <translation>无法写入图片 %1：%2</translation>
    </message>
</context>
<context>
    <name>Store</name>
    <message>
        <source>the store %1 can&apos;t be opened: %2</source>
        <translation>无法打开存储 %1：%2</translation>
    </message>
    <message>
        <source>%1 is a database, but no store of an inspection flow</source>
        <translation>%1 是数据库，但不是检测流程的存储</translation>
    </message>
    <message>
        <source>the store %1 has version %2; this program reads up to %3</source>
        <translation>存储 %1 的版本为 %2；本程序最高支持 %3</translation>
    </message>
    <message>
        <source>the store %1 is damaged: %2</source>
        <translation>存储 %1 已损坏：%2</translation>
    </message>
    <message>
        <source>the store %1 failed: %2</source>
        <translation>存储 %1 出错：%2</translation>
    </message>
    <message>
        <source>the store %1 has another table, index, view or trigger than this program makes: %2</source>
        <translation>存储 %1 含有并非本程序创建的表、索引、视图或触发器：%2</translation>
    </message>
    <message>
        <source>the store %1 lacks a table: %2</source>
        <translation>存储 %1 缺少一个表：%2</translation>
    </message>
    <message>
        <source>module %1 is too large: it has more than %2 entries of a kind</source>
        <translation>模块 %1 过大：同类条目超过 %2 个</translation>
    </message>
    <message>
        <source>%1 of module %2 is too large: it has %3 bytes of at most %4</source>
        <translation>模块 %2 的 %1 过大：%3 字节，最多 %4 字节</translation>
    </message>
    <message>
        <source>the store %1 was moved, deleted or replaced: put it back, or open the flow again</source>
        <translation>存储 %1 已被移动、删除或替换：请将其放回原处，或重新打开流程</translation>
    </message>
    <message>
        <source>the store %1 did not take the change</source>
        <translation>存储 %1 未接受该更改</translation>
    </message>
    <message>
        <source>the store %1 is locked by another program</source>
        <translation>存储 %1 已被其他程序锁定</translation>
    </message>
</context>
<context>
    <name>StoreFile</name>
    <message>
        <source>a store must be the path to a file, not &quot;%1&quot;</source>
        <translation>存储必须是文件路径，而不是“%1”</translation>
    </message>
    <message>
        <source>no such store: %1</source>
        <translation>没有此存储：%1</translation>
    </message>
    <message>
        <source>the store %1 is not a file</source>
        <translation>存储 %1 不是文件</translation>
    </message>
    <message>
        <source>the store %1 can&apos;t be opened: %2</source>
        <translation>无法打开存储 %1：%2</translation>
    </message>
    <message>
        <source>the store %1 is in use by another program</source>
        <translation>存储 %1 正被其他程序使用</translation>
    </message>
    <message>
        <source>the folder of the store %1 can&apos;t be written: %2</source>
        <translation>无法写入存储 %1 所在的文件夹：%2</translation>
    </message>
    <message>
        <source>the store %1 has another name, a hard link, under which it is in use or was not closed</source>
        <translation>存储 %1 还有另一个名称（硬链接），正以该名称使用或未曾正常关闭</translation>
    </message>
</context>
<context>
    <name>StoredStatus</name>
    <message>
        <source>%1 is not stored: %2</source>
        <translation>%1 未存储：%2</translation>
    </message>
    <message>
        <source>not loaded: %1</source>
        <translation>未加载：%1</translation>
    </message>
    <message>
        <source>not stored: %1</source>
        <translation>未存储：%1</translation>
    </message>
    <message>
        <source>All is stored. Add with +, choose input and bounds, press F9 to judge all rows.</source>
        <translation>全部已存储。用 + 添加，选择输入和上下限，按 F9 判断所有行。</translation>
    </message>
</context>
<context>
    <name>WorkbenchApplication</name>
    <message>
        <source>The core or a panel failed; the last action may be incomplete.

%1</source>
        <translation>核心或面板出错，上一操作可能未完成。

%1</translation>
    </message>
    <message>
        <source>%1 is not a regular file.</source>
        <translation>%1 不是普通文件。</translation>
    </message>
</context>
<context>
    <name>WorkbenchOptions</name>
    <message>
        <source>Inspection flow to open, a JSON file.</source>
        <translation>要打开的检测流程（JSON 文件）。</translation>
    </message>
    <message>
        <source>file</source>
        <translation>文件</translation>
    </message>
    <message>
        <source>id</source>
        <translation>编号</translation>
    </message>
    <message>
        <source>Plug-in that makes the panels.</source>
        <translation>生成面板的插件。</translation>
    </message>
    <message>
        <source>Write a picture of the window and end; needs no display.</source>
        <translation>写入窗口图片后结束，无需显示器。</translation>
    </message>
    <message>
        <source>file.png</source>
        <translation>文件.png</translation>
    </message>
    <message>
        <source>Show this text.</source>
        <translation>显示本帮助。</translation>
    </message>
    <message>
        <source>Show the version.</source>
        <translation>显示版本。</translation>
    </message>
    <message>
        <source>Unexpected argument &apos;%1&apos;.</source>
        <translation>意外的参数“%1”。</translation>
    </message>
    <message>
        <source>&apos;%1&apos; is no module id.</source>
        <translation>“%1”不是模块编号。</translation>
    </message>
    <message>
        <source>Arm a fault, such as kind=SetBinaryData,parameter=IFText,when=next,answer=Failed,message=full. May be given again.</source>
        <translation>启用故障，例如 kind=SetBinaryData,parameter=IFText,when=next,answer=Failed,message=full。可重复给出。</translation>
    </message>
    <message>
        <source>fault</source>
        <translation>故障</translation>
    </message>
    <message>
        <source>The flow %1 has no module %2.</source>
        <translation>流程 %1 没有模块 %2。</translation>
    </message>
    <message>
        <source>Shows an inspection flow and the configuration panels of its If modules. With --run, --dump, --sql, --export or --import it works without a display.

Exit codes: 0 done, 1 failed, 2 wrong usage, 3 some rows are not OK (with --fail-on-not-ok).</source>
        <translation>显示检测流程及其 If 模块的配置面板。使用 --run、--dump、--sql、--export 或 --import 时无需显示器。

退出码：0 完成，1 失败，2 用法错误，3 有不合格的行（使用 --fail-on-not-ok 时）。</translation>
    </message>
    <message>
        <source>Store of the modules&apos; parameters; the window and --import make it when it is missing. By default a file for each flow file in %1.</source>
        <translation>模块参数的存储；不存在时由窗口和 --import 创建。默认在 %1 中为每个流程文件各建一个。</translation>
    </message>
    <message>
        <source>Module to show first, or to work on without a display.</source>
        <translation>首先显示的模块，或无显示器时要处理的模块。</translation>
    </message>
    <message>
        <source>Judge the rows of CSV files with the same header, - for standard input, and print the results as CSV.</source>
        <translation>判定表头相同的 CSV 文件的各行（- 表示标准输入），并以 CSV 输出结果。</translation>
    </message>
    <message>
        <source>file.csv ...</source>
        <translation>file.csv ...</translation>
    </message>
    <message>
        <source>With --run: print the totals only.</source>
        <translation>与 --run 一起使用：只输出合计。</translation>
    </message>
    <message>
        <source>With --run: exit code 3 when some rows are not OK.</source>
        <translation>与 --run 一起使用：有不合格的行时退出码为 3。</translation>
    </message>
    <message>
        <source>Print all that the store holds for the module as JSON.</source>
        <translation>以 JSON 输出存储中该模块的全部内容。</translation>
    </message>
    <message>
        <source>Print SQL queries that judge a table with the columns of the CSV file.</source>
        <translation>输出 SQL 查询，用于判定具有 CSV 文件各列的表。</translation>
    </message>
    <message>
        <source>With --sql: the table&apos;s name, samples by default.</source>
        <translation>与 --sql 一起使用：表名，默认为 samples。</translation>
    </message>
    <message>
        <source>name</source>
        <translation>名称</translation>
    </message>
    <message>
        <source>Write the module&apos;s conditions to a file, - for standard output.</source>
        <translation>将模块的条件写入文件，- 表示标准输出。</translation>
    </message>
    <message>
        <source>file.json</source>
        <translation>file.json</translation>
    </message>
    <message>
        <source>Replace the module&apos;s conditions by those of a file.</source>
        <translation>用文件中的条件替换模块的条件。</translation>
    </message>
    <message>
        <source>With --run, --dump and --sql: take the conditions from a file instead of the store.</source>
        <translation>与 --run、--dump 和 --sql 一起使用：从文件而不是存储读取条件。</translation>
    </message>
    <message>
        <source>--%1 and --%2 exclude each other.</source>
        <translation>--%1 与 --%2 不能同时使用。</translation>
    </message>
    <message>
        <source>--%1 needs --%2.</source>
        <translation>--%1 需要 --%2。</translation>
    </message>
    <message>
        <source> or --</source>
        <translation> 或 --</translation>
    </message>
    <message>
        <source>--%1 needs a name.</source>
        <translation>--%1 需要一个名称。</translation>
    </message>
    <message>
        <source>&apos;%1&apos; does not end in .png.</source>
        <translation>“%1”不以 .png 结尾。</translation>
    </message>
    <message>
        <source>Module %1 is no If module.</source>
        <translation>模块 %1 不是 If 模块。</translation>
    </message>
    <message>
        <source>The flow %1 has no If module.</source>
        <translation>流程 %1 没有 If 模块。</translation>
    </message>
    <message>
        <source>The flow %1 has several If modules; choose one with --module: %2.</source>
        <translation>流程 %1 有多个 If 模块；请用 --module 选择一个：%2。</translation>
    </message>
</context>
<context>
    <name>main</name>
    <message>
        <source>If Workbench</source>
        <translation>If 工作台</translation>
    </message>
    <message>
        <source>There is no display. --screenshot FILE.png writes a picture without one.</source>
        <translation>没有显示器。--screenshot FILE.png 无需显示器即可写入图片。</translation>
    </message>
    <message>
        <source>See if-workbench --help.</source>
        <translation>参见 if-workbench --help。</translation>
    </message>
</context>
</TS>
