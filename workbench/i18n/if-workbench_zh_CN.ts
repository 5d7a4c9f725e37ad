<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="zh_CN" sourcelanguage="en">
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
    <name>Flow</name>
    <message>
        <source>%1: expected %2</source>
        <translation>%1：应为%2</translation>
    </message>
    <message>
        <source>an object</source>
        <translation>对象</translation>
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
        <source>a name without &quot;.&quot; that no output beside it has</source>
        <translation>不含“.”且同级中唯一的名称</translation>
    </message>
    <message>
        <source>a whole number from 1 to 2147483647 that no other module has</source>
        <translation>1 到 2147483647 之间且其他模块未用的整数</translation>
    </message>
    <message>
        <source>line %1, column %2</source>
        <translation>第 %1 行第 %2 列</translation>
    </message>
    <message>
        <source>JSON (%1)</source>
        <translation>JSON（%1）</translation>
    </message>
    <message>
        <source>the whole file</source>
        <translation>整个文件</translation>
    </message>
    <message>
        <source>%1: %2</source>
        <translation>%1：%2</translation>
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
        <source>This module has no panel here.</source>
        <translation>该模块在此没有面板。</translation>
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
        <source>not shown</source>
        <translation>未显示</translation>
    </message>
    <message>
        <source>shown otherwise: %1</source>
        <translation>显示为：%1</translation>
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
    <name>Screenshot</name>
    <message>
        <source>The picture %1 can&apos;t be written: %2</source>
        <translation>无法写入图片 %1：%2</translation>
    </message>
</context>
<context>
    <name>Store</name>
    <message>
        <source>the store %1 is not a file</source>
        <translation>存储 %1 不是文件</translation>
    </message>
    <message>
        <source>the folder of the store %1, or its lock file there, can&apos;t be written: %2</source>
        <translation>存储 %1 所在文件夹或其锁文件无法写入：%2</translation>
    </message>
    <message>
        <source>the store %1 is in use by another program</source>
        <translation>存储 %1 正被其他程序使用</translation>
    </message>
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
</context>
<context>
    <name>Workbench</name>
    <message>
        <source>The flow %1 has no module %2.</source>
        <translation>流程 %1 没有模块 %2。</translation>
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
</context>
<context>
    <name>WorkbenchOptions</name>
    <message>
        <source>Shows an inspection flow and the configuration panels of its If modules.</source>
        <translation>显示检测流程及其 If 模块的配置面板。</translation>
    </message>
    <message>
        <source>Inspection flow to open, a JSON file.</source>
        <translation>要打开的检测流程（JSON 文件）。</translation>
    </message>
    <message>
        <source>file</source>
        <translation>文件</translation>
    </message>
    <message>
        <source>Store of the modules&apos; parameters, made when it is missing.</source>
        <translation>模块参数的存储，不存在时新建。</translation>
    </message>
    <message>
        <source>Module to show first.</source>
        <translation>首先显示的模块。</translation>
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
</context>
</TS>
