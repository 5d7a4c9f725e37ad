<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="en" sourcelanguage="en">
<context>
    <name>ButtonSelecterView</name>
    <message>
        <source>choose a value</source>
        <translation>choose a value</translation>
    </message>
</context>
<context>
    <name>SubscribeField</name>
    <message>
        <source>%1
The flow has no such value any more.</source>
        <translation>%1
The flow has no such value any more.</translation>
    </message>
</context>
<context>
    <name>SubscribeMenuModel</name>
    <message>
        <source>not bound</source>
        <translation>not bound</translation>
    </message>
</context>
<context>
    <name>SubscribeMenuPopup</name>
    <message>
        <source>filter</source>
        <translation>filter</translation>
    </message>
    <message>
        <source>no matching values</source>
        <translation>no matching values</translation>
    </message>
</context>
</TS>
