<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="zh_CN">
<context>
    <name>ArchivePage</name>
    <message>
        <source>%1 files compressed into %2 (%3 bytes).</source>
        <translation>已将 %1 个文件压缩到 %2（%3 字节）。</translation>
    </message>
    <message>
        <source>Compression failed.</source>
        <translation>压缩失败。</translation>
    </message>
    <message>
        <source>%1 files extracted into %2.</source>
        <translation>已将 %1 个文件解压到 %2。</translation>
    </message>
    <message>
        <source>Writing the files: %p%</source>
        <translation>正在写入文件：%p%</translation>
    </message>
    <message>
        <source>Extracting: %p%</source>
        <translation>正在解压：%p%</translation>
    </message>
    <message>
        <source>Done</source>
        <translation>完成</translation>
    </message>
    <message>
        <source>Compress a set of generated files with the archive helpers, then extract it again</source>
        <translation>用归档功能压缩一组生成的文件，然后再将其解压</translation>
    </message>
    <message>
        <source> files</source>
        <translation> 个文件</translation>
    </message>
    <message>
        <source>Compress</source>
        <translation>压缩</translation>
    </message>
    <message>
        <source>Extract</source>
        <translation>解压</translation>
    </message>
</context>
<context>
    <name>ShowcaseWindow</name>
    <message>
        <source>The image was changed. Do you want to save the changes before closing it?</source>
        <translation>图像已更改。是否在关闭前保存更改？</translation>
    </message>
    <message>
        <source>Yes</source>
        <translation>是</translation>
    </message>
    <message>
        <source>No</source>
        <translation>否</translation>
    </message>
    <message>
        <source>Save</source>
        <translation>保存</translation>
    </message>
    <message>
        <source>Don&apos;t save</source>
        <translation>不保存</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>取消</translation>
    </message>
    <message>
        <source>Closed</source>
        <translation>已关闭</translation>
    </message>
    <message>
        <source>Information</source>
        <translation>信息</translation>
    </message>
    <message>
        <source>The image was saved.</source>
        <translation>图像已保存。</translation>
    </message>
    <message>
        <source>OK</source>
        <translation>确定</translation>
    </message>
    <message>
        <source>Warning</source>
        <translation>警告</translation>
    </message>
    <message>
        <source>The file cannot be opened.</source>
        <translation>无法打开该文件。</translation>
    </message>
    <message>
        <source>Critical</source>
        <translation>严重</translation>
    </message>
    <message>
        <source>The operation failed.</source>
        <translation>操作失败。</translation>
    </message>
    <message>
        <source>Yes / No</source>
        <translation>是 / 否</translation>
    </message>
    <message>
        <source>Rotate question</source>
        <translation>旋转询问</translation>
    </message>
    <message>
        <source>Rotate the image?</source>
        <translation>旋转图像？</translation>
    </message>
    <message>
        <source>Rotate</source>
        <translation>旋转</translation>
    </message>
    <message>
        <source>Save / Don&apos;t save / Cancel</source>
        <translation>保存 / 不保存 / 取消</translation>
    </message>
    <message>
        <source>Background processing</source>
        <translation>后台处理</translation>
    </message>
    <message>
        <source>The image is still being processed.</source>
        <translation>图像仍在处理中。</translation>
    </message>
    <message>
        <source>Quit</source>
        <translation>退出</translation>
    </message>
    <message>
        <source>Don&apos;t quit</source>
        <translation>不退出</translation>
    </message>
    <message>
        <source>Host warning</source>
        <translation>宿主程序警告</translation>
    </message>
    <message>
        <source>Continue</source>
        <translation>继续</translation>
    </message>
    <message>
        <source>About</source>
        <translation>关于</translation>
    </message>
    <message>
        <source>About Sorel</source>
        <translation>关于 Sorel</translation>
    </message>
    <message>
        <source>Folder chooser</source>
        <translation>文件夹选择</translation>
    </message>
    <message>
        <source>Choose a folder</source>
        <translation>选择文件夹</translation>
    </message>
    <message>
        <source>Cancelled</source>
        <translation>已取消</translation>
    </message>
    <message>
        <source>UtilsDll showcase</source>
        <translation>UtilsDll 展示</translation>
    </message>
    <message>
        <source>Language (%1):</source>
        <translation>语言 (%1)：</translation>
    </message>
    <message>
        <source>Dialogs</source>
        <translation>对话框</translation>
    </message>
    <message>
        <source>Start-up</source>
        <translation>启动</translation>
    </message>
    <message>
        <source>Drawing</source>
        <translation>绘制</translation>
    </message>
    <message>
        <source>Archives</source>
        <translation>归档</translation>
    </message>
    <message>
        <source>SOAP</source>
        <translation>SOAP</translation>
    </message>
    <message>
        <source>Run on a temporary settings store</source>
        <translation>使用临时设置存储运行</translation>
    </message>
</context>
<context>
    <name>SoapPage</name>
    <message>
        <source>Waiting for the answer...</source>
        <translation>正在等待应答...</translation>
    </message>
    <message>
        <source>Fault: %1</source>
        <translation>故障：%1</translation>
    </message>
    <message>
        <source>No fault.</source>
        <translation>无故障。</translation>
    </message>
    <message>
        <source>Host</source>
        <translation>主机</translation>
    </message>
    <message>
        <source>Port</source>
        <translation>端口</translation>
    </message>
    <message>
        <source>HTTPS</source>
        <translation>HTTPS</translation>
    </message>
    <message>
        <source>Path</source>
        <translation>路径</translation>
    </message>
    <message>
        <source>Action</source>
        <translation>动作</translation>
    </message>
    <message>
        <source>Method</source>
        <translation>方法</translation>
    </message>
    <message>
        <source>Namespace</source>
        <translation>命名空间</translation>
    </message>
    <message>
        <source>Arguments</source>
        <translation>参数</translation>
    </message>
    <message>
        <source>Use HTTPS</source>
        <translation>使用 HTTPS</translation>
    </message>
    <message>
        <source>Send the request</source>
        <translation>发送请求</translation>
    </message>
    <message>
        <source>The request envelope</source>
        <translation>请求信封</translation>
    </message>
    <message>
        <source>The response envelope</source>
        <translation>响应信封</translation>
    </message>
</context>
<context>
    <name>ToolsPage</name>
    <message numerus="yes">
        <source>&quot;%1&quot; (shown %n time(s))</source>
        <translation>
            <numerusform>“%1”（已显示 %n 次）</numerusform>
        </translation>
    </message>
    <message>
        <source>The seven tool cursors</source>
        <translation>七种工具光标</translation>
    </message>
    <message>
        <source>A tool line, tiled and stretched</source>
        <translation>平铺与拉伸的工具线</translation>
    </message>
    <message>
        <source>An icon ignoring, keeping and expanding its aspect</source>
        <translation>忽略、保持和扩展宽高比的图标</translation>
    </message>
    <message>
        <source>A debounced field: the text below follows once typing pauses</source>
        <translation>防抖输入框：输入停顿后，下方文字随之更新</translation>
    </message>
</context>
</TS>
